* Lists the customers; it doesn't show the deleted ones.
FUNCTION Main()
   LOCAL nCount := 0
   LOCAL cTitle := "Customers"

   USE customer INDEX custname NEW
   SET DELETED ON
   ? cTitle
   DO WHILE ! Eof()
      IF customer->balance > 0   // the ones who owe
         ? customer->name, Str( customer->balance, 10, 2 )
         nCount++
      ENDIF
      SKIP
   ENDDO
   && that's all of them
   ? "Total:", nCount
   CLOSE DATABASES
   RETURN NIL
