; Totals the orders of the open table; it doesn't post them.
method pushButton(var eventInfo Event)
var
    tc      TCursor
    total   Number
    title   String
endVar
    title = "Order total"
    { The user's filter isn't applied here. }
    if not tc.open("orders.db") then
        errorShow("Can't open the orders")
        return
    endIf
    total = 0
    scan tc :
        total = total + tc."Amount"
    endScan
    tc.close()
    msgInfo(title, "Total: " + String(total))
endMethod
