MODULE Primes;
(* Prints the primes below a limit; it doesn't use a sieve. *)
FROM InOut IMPORT WriteString, WriteCard, WriteLn;

CONST Limit = 50;
VAR n, d : CARDINAL;
    prime : BOOLEAN;

BEGIN
  WriteString("Primes below 50:");
  WriteLn;
  FOR n := 2 TO Limit - 1 DO
    prime := TRUE;
    d := 2;
    (* The divisor's square can't pass n. *)
    WHILE prime AND (d * d <= n) DO
      IF n MOD d = 0 THEN prime := FALSE END;
      INC(d)
    END;
    IF prime THEN WriteCard(n, 4) END
  END;
  WriteString('done');
  WriteLn
END Primes.
