#include "search/SearchState.h"

int32_t& SearchPosition() {
    static int32_t position = 0;
    return position;
}

QString& LastSearchText() {
    static QString text;
    return text;
}
