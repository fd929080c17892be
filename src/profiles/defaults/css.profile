name: CSS Default Profile
case-sensitive: no
code-order: yes

# Single-quoted strings get no pair: an apostrophe in a comment would pair with the next quote
# further down and shift every string of the file.

[keywords 1] at-rules
@media
@import
@font-face
@keyframes
@supports
@charset
@page
@layer
@container
@namespace
!important

[keywords 2] properties
color
background
background-color
background-image
margin
margin-top
margin-bottom
margin-left
margin-right
padding
border
border-radius
display
position
top
left
right
bottom
width
height
max-width
min-width
max-height
min-height
font
font-size
font-family
font-weight
line-height
text-align
text-decoration
overflow
opacity
z-index
flex
flex-direction
justify-content
align-items
gap
grid
grid-template-columns
transition
transform
box-shadow
cursor
content
float
clear
visibility
outline

[keywords 3] values, units and functions
none
auto
inherit
initial
unset
block
inline
inline-block
absolute
relative
fixed
sticky
solid
dashed
bold
normal
center
hidden
pointer
transparent
px
em
rem
vh
vw
var
calc
rgb
rgba
hsl
url

[delimiters]
delimiter1  "    "
comment     /*   */
