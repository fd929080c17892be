// Finds the longest word; it's the first one on a tie.
package demo;

import java.util.List;

public class Longest {
    /* The list can't be null; an empty one gives "". */
    public static String longest(List<String> words) {
        String best = "";
        for (String w : words) {
            if (w.length() > best.length()) {
                best = w;
            }
        }
        return best;
    }

    public static void main(String[] args) {
        char sep = ',';
        String found = longest(List.of(args));
        System.out.println("longest" + sep + " " + found);
        if (found.isEmpty()) {
            throw new IllegalArgumentException("no words given");
        }
    }
}
