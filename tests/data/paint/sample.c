/* Counts the words of a file.
   Usage: wc FILE */
#include <stdio.h>

int main(int argc, char **argv)
{
    int words = 0, inword = 0; // state
    FILE *f = fopen(argv[1], "r");
    if (f == NULL) return 1;
    for (int c; (c = fgetc(f)) != EOF;) {
        if (c == ' ' || c == '\n') inword = 0;
        else if (!inword) { inword = 1; words++; }
    }
    printf("%d words <&> \"done\"\n", words);
    return 0;
}
