/* REXX: adds up the numbers given; it doesn't accept words. */
parse arg numbers
total = 0
count = 0
do while numbers <> ''
    parse var numbers n numbers
    if \ datatype(n, 'N') then do
        say "not a number:" n
        exit 1
    end
    total = total + n
    count = count + 1
end
/* The user's list can't be empty. */
if count = 0 then
    say "nothing to add"
else
    say 'total' total 'of' count 'numbers'
exit 0
