// Sums the numbers of a file; it's one number a line.
using System;
using System.IO;

namespace Demo
{
    /* Blank lines don't count. */
    public static class Summer
    {
        #region Reading
        public static long Sum(string path)
        {
            long total = 0;
            foreach (var line in File.ReadLines(path))
            {
                if (string.IsNullOrWhiteSpace(line)) continue;
                total += long.Parse(line.Trim());
            }
            return total;
        }
        #endregion

        public static void Main(string[] args)
        {
            char sep = ':';
            Console.WriteLine($"total{sep} {Sum(args[0])}");
        }
    }
}
