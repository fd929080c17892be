/* Lists the customers with a balance; it doesn't show the others. */
DEFINE VARIABLE iCount AS INTEGER NO-UNDO.
DEFINE VARIABLE cTitle AS CHARACTER NO-UNDO INITIAL "Customers".

DISPLAY cTitle.
FOR EACH Customer NO-LOCK WHERE Customer.Balance > 0
    BY Customer.Name:
    iCount = iCount + 1.
    DISPLAY Customer.Name Customer.Balance.
END.

/* The user's own report isn't changed. */
IF iCount = 0 THEN
    MESSAGE "No customer owes anything." VIEW-AS ALERT-BOX.
ELSE
    MESSAGE iCount 'customers' VIEW-AS ALERT-BOX.

PROCEDURE ShowOne:
    DEFINE INPUT PARAMETER pName AS CHARACTER NO-UNDO.
    DISPLAY pName FORMAT "x(30)".
END PROCEDURE.
