<html>
<!-- The visitor counter: it doesn't count robots. -->
<body>
<?php
/* The counter's file lives beside the script. */
$file = "counter.txt";
$agent = $HTTP_USER_AGENT;

// Robots aren't counted.
if (strpos($agent, "bot") === false) {
    $count = (int) implode('', file($file));
    $count++;
    $fp = fopen($file, "w");
    fwrite($fp, $count);
    fclose($fp);
} else {
    $count = 0;
}
echo "<p>You are visitor number $count.</p>";
?>
</body>
</html>
