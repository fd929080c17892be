' Guesses a number; it doesn't keep a high score.
DECLARE SUB ShowTitle ()
RANDOMIZE TIMER
secret = INT(RND * 100) + 1
tries = 0

CALL ShowTitle
DO
    INPUT "Your guess"; guess
    tries = tries + 1
    IF guess < secret THEN
        PRINT "Too low"
    ELSEIF guess > secret THEN
        PRINT "Too high"
    END IF
LOOP UNTIL guess = secret
REM The player's tries are shown once.
PRINT "Right after"; tries; "tries"
END

SUB ShowTitle
    PRINT "Guess the number"
END SUB
