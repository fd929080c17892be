name: SQL Default Profile
case-sensitive: no
code-order: yes

# Strings in single quotes get no pair: an apostrophe in a comment ("don't") would pair
# with the next quote further down, colour all the code between as a string and every later
# string as code. Quoted names keep their pair.

[keywords 1] statements and clauses
SELECT
DISTINCT
FROM
WHERE
GROUP BY
HAVING
ORDER BY
ASC
DESC
UNION
INTERSECT
EXCEPT
JOIN
INNER
OUTER
LEFT
RIGHT
FULL
CROSS
ON
INSERT
INTO
VALUES
UPDATE
SET
DELETE
CREATE
ALTER
DROP
TABLE
VIEW
INDEX
UNIQUE
PRIMARY KEY
FOREIGN KEY
REFERENCES
CONSTRAINT
DEFAULT
CHECK
GRANT
REVOKE
COMMIT
ROLLBACK
BEGIN
END
DECLARE
PROCEDURE
FUNCTION
TRIGGER
RETURN
CASE
WHEN
THEN
ELSE
AS

[keywords 2] data types and functions
CHAR
VARCHAR
TEXT
INTEGER
INT
SMALLINT
BIGINT
DECIMAL
NUMERIC
FLOAT
REAL
DOUBLE PRECISION
DATE
TIME
TIMESTAMP
BOOLEAN
BLOB
COUNT
SUM
AVG
MIN
MAX
UPPER
LOWER
SUBSTRING
TRIM
COALESCE
NULLIF
CAST
CONVERT
CURRENT_DATE
CURRENT_TIME
CURRENT_TIMESTAMP

[keywords 3] operators and predicates
AND
OR
NOT
NULL
IS
IN
LIKE
BETWEEN
EXISTS
ALL
ANY
SOME

[delimiters]
delimiter2  "    "
comment     /*   */
comment     --   \n
