      *> Adds up the order lines; it doesn't round the total.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ORDERSUM.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01 WS-TOTAL      PIC 9(7)V99 VALUE ZERO.
       01 WS-LINE       PIC 9(5)V99.
       01 WS-COUNT      PIC 99 VALUE 0.
       PROCEDURE DIVISION.
       MAIN-PARA.
           DISPLAY "Order total".
           PERFORM VARYING WS-COUNT FROM 1 BY 1 UNTIL WS-COUNT > 3
               MOVE 12.50 TO WS-LINE
               ADD WS-LINE TO WS-TOTAL
           END-PERFORM
      *> The customer's copy is printed elsewhere.
           IF WS-TOTAL > 100
               DISPLAY 'Large order: ' WS-TOTAL
           ELSE
               DISPLAY "Total: " WS-TOTAL
           END-IF
           STOP RUN.
