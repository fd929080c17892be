#!/usr/bin/env python3
"""Counts the words of the files named on the command line."""
import sys
from collections import Counter


class WordCounter:
    '''Keeps a running count; it's reset by clear().'''

    def __init__(self, limit=10):
        self.limit = limit
        self.counts = Counter()

    def add(self, text):
        # Don't count the empty words that split() can't produce anyway.
        for word in text.lower().split():
            self.counts[word] += 1
        return len(self.counts)

    @property
    def top(self):
        return self.counts.most_common(self.limit)


if __name__ == "__main__":
    wc = WordCounter()
    for name in sys.argv[1:]:
        with open(name, encoding='utf-8') as f:
            wc.add(f.read())
    for word, n in wc.top:
        print(f"{word}: {n}")
