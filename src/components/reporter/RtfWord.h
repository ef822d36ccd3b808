#pragma once

#include "components/reporter/RtfInterpreter.h"
#include <algorithm>

namespace ledgora::reporter {

using Interpreter = RtfInterpreter;

/// What a control word does; the tables of words are lists of these.
struct Word
{
    void (*apply)(Interpreter &, int);
    int withoutNumber = 0; ///< the parameter that a word without one means
};

/// A length in twips, within what a page can hold: files claim anything.
inline int length(int value)
{
    return std::clamp(value, -largestLength, largestLength);
}

inline int positiveLength(int value)
{
    return std::clamp(value, 0, largestLength);
}

} // namespace ledgora::reporter
