name: Markdown Default Profile
case-sensitive: yes
code-order: yes

# Markdown is prose: neither quotes nor apostrophes get a pair. Headings and links go first;
# code spans and fenced blocks paint over them, and HTML comments come last.

[keywords 1] rules and task boxes
---
***
___
- [ ]
- [x]
* [ ]
* [x]

[keywords 2] inline HTML
<br>
<br/>
<details>
</details>
<summary>
</summary>
<kbd>
</kbd>
<sup>
</sup>
<sub>
</sub>

[delimiters]
delimiter2  #    \n
delimiter2  **   **
delimiter1  ](   )
delimiter1  `    `
comment     <!-- -->
