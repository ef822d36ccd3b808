#pragma once

#include <QString>
#include <ostream>

/// A failed comparison shows texts as texts, control characters and all.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
