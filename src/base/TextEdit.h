#pragma once
// One replacement in a text: what the pure text commands hand to the edit control, which
// applies a list of them as one undo step.
#include <cstdint>
#include <string>

struct TextEdit {
    int64_t start = 0;  // position in the text before any edit of the list
    int64_t length = 0; // bytes replaced
    std::string text;   // what replaces them
};
