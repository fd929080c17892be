-- Prints a table of squares; it doesn't check for overflow.
with Ada.Text_IO; use Ada.Text_IO;

procedure Squares is
   type Index is range 1 .. 10;
   Total : Natural := 0;
   Title : constant String := "Squares";
begin
   Put_Line (Title & " of" & Index'Last'Image);
   for I in Index loop
      declare
         Square : constant Natural := Natural (I) * Natural (I);
      begin
         Total := Total + Square;
         if Square mod 2 = 0 then
            Put_Line (Index'Image (I) & " even");
         else
            Put_Line (Index'Image (I) & " odd");
         end if;
      end;
   end loop;
   Put_Line ("sum:" & Natural'Image (Total));
end Squares;
