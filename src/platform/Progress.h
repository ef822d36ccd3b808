#pragma once

#include <QString>
#include <functional>

namespace ledgora {

/// Told how far long work has come, in the work's own units and a word for the user; returns False to end it.
using Progress = std::function<bool(qint64 done, qint64 total, const QString &what)>;

/// For work that nobody watches.
inline Progress unwatched()
{
    return [](qint64, qint64, const QString &) { return true; };
}

inline constexpr auto cancelledText = "It was cancelled.";

} // namespace ledgora
