# kestrum-do's transform and HTML subcommands against the built binary.
source "$(dirname "$0")/../support/do_cases.sh"

W='message: Please note that using this command on non-HTML files may result in the corruption of that file'"'"'s linebreak structure. Continue?'

# status  stdout  stderr line  file  arguments
check 0 '\ta\r\n  b\r\n' 'selection 0 2' 'a\n  b\n' \
    --select 0 3 indent-selection --real-tabs --report-selection @
check 0 '  a\r\nb\r\n' 'selection 0 3' 'a\rb\n' --select 0 1 indent-selection --tab-width 2 --report-selection @
check 0 'a\r\n  b\r\n' '' ' a \r\n  b\r\n' trim-spaces @
check 0 'AB c\r\n' '' 'ab c\n' --select 0 2 to-upper-case @
check 0 '  x\r\n' '' '\tx\n' tabs-to-spaces --spaces 2 @
check 0 '\tx\r\n' '' '\tx\n' tabs-to-spaces --spaces 2 --cancel @
check 0 '\tx  y\r\n' '' '    x  y\n' spaces-to-tabs --tab-width 4 @
check 0 'a\nb\n' 'message: All carriage returns stripped.' 'a\nb\n' dos-to-unix @
check 0 'a\r\r\nb' 'message: All linefeeds replaced with carriage return + linefeed sequences.' 'a\nb' unix-to-dos @
check 0 'b\r\n' '' 'a\nb\n' delete-line @
check 0 'a\r\nb\r\n' 'selection 3 1' 'a\nb\n' --select 4 0 select-line --report-selection @
check 0 '<a> x</a>' "$W" '<a >\n\tx< /a>' html-compact @
check 0 '<a >\r\n\tx< /a>' "$W" '<a >\n\tx< /a>' html-loose --answer no @
check 0 '\r\n<a\r\n\t<b>' '' '<a<b>' html-indent @
# Usage errors: one line on stderr, nothing on stdout, status 2.
check 2 '' '' 'x\n' tabs-to-spaces --spaces 2a @
check 2 '' '' 'x\n' to-upper-case --cancel @
check 2 '' '' 'x\n' indent-selection --tab-width -1 @
check 2 '' '' 'x\n' html-compact --answer maybe @
check 2 '' '' 'x\n' html-indent --answer yes @
check 2 '' '' 'x\n' html-loose
finish
