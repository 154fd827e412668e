#pragma once

#include <string_view>

#include "exchange/json_text.h"
#include "exchange/keys.h"
#include "exchange/words.h"
#include "platform/codes.h"

namespace orvent::exchange {

/// Begins a member of an object whose members stand on lines of their own.
inline void begin(JsonText& out, Key key) {
    out.nextLine();
    out.key(nameOf(key));
}

/// Begins a member of an object on one line.
inline void beginInline(JsonText& out, Key key) {
    out.next();
    out.key(nameOf(key));
}

/// The code's word, or its number.
template <class Code>
void writeCode(JsonText& out, Code code) {
    if (const std::string_view word = wordOf(code); !word.empty()) {
        out.text(word);
    } else {
        out.number(platform::numberOf(code));
    }
}

}  // namespace orvent::exchange
