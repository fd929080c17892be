-- The orders of the last month; it doesn't include cancelled ones.
CREATE TABLE orders (
    id INTEGER PRIMARY KEY,
    customer VARCHAR(40) NOT NULL,
    amount DECIMAL(9, 2),
    status CHAR(1) DEFAULT 'N',
    placed DATE
);

/* The customer's name is kept as typed. */
SELECT customer, COUNT(*) AS "orders", SUM(amount) AS total
FROM orders
WHERE status <> 'C'
  AND placed >= CURRENT_DATE - 30
GROUP BY customer
HAVING SUM(amount) > 100
ORDER BY total DESC;

UPDATE orders SET status = 'S' WHERE id IN (SELECT id FROM orders WHERE amount IS NULL);
-- Case does not matter:
select count(*) from orders where status = 'S';
