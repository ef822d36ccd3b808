#pragma once

#include "components/reporter/PageList.h"

namespace ledgora::reporter {

/// A place where the words that were looked for stand; more than one area when they are spread over lines or formats.
struct Hit
{
    int page = 0; ///< from 0
    std::vector<QRectF> areas;
};

/// Looks for words in pages, without regard to case and to how many blanks or lines part them. At most `mostHits`.
std::vector<Hit> findText(const Pages &pages, const QString &words);

constexpr std::size_t mostHits = 10'000;

} // namespace ledgora::reporter
