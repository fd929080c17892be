program Temperatures;
{ Converts a table of temperatures; it doesn't read a file. }
{$APPTYPE CONSOLE}

uses SysUtils;

const
  Count = 5;

var
  Celsius: array[1..Count] of Real = (0, 10, 20, 30, 40);
  I: Integer;

function ToFahrenheit(C: Real): Real;
begin
  Result := C * 9 / 5 + 32;
end;

// The user's locale isn't looked at.
begin
  WriteLn('Celsius  Fahrenheit');
  for I := 1 to Count do
  begin
    (* one line per value *)
    WriteLn(Format('%7.1f  %10.1f', [Celsius[I], ToFahrenheit(Celsius[I])]));
  end;
  if Count > 3 then
    WriteLn('done');
end.
