/* Counts the lines of a file; it doesn't care about a missing last line end. */
#include <stdio.h>
#include <stdlib.h>

// The user's file name comes first; don't read standard input.
static long count_lines(FILE *f)
{
    long lines = 0;
    int c;
    while ((c = fgetc(f)) != EOF)
        if (c == '\n')
            lines++;
    return lines;
}

int main(int argc, char **argv)
{
    if (argc < 2) {
        fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return EXIT_FAILURE;
    }
    FILE *f = fopen(argv[1], "r");
    if (f == NULL) {
        perror("fopen");
        return EXIT_FAILURE;
    }
    printf("%ld lines\n", count_lines(f));
    long Int = 0, Return = 1; // no keywords: case matters
    fclose(f);
    return 0;
}
