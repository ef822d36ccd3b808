#pragma once

#include <QString>
#include <vector>

namespace ledgora::banklookup {

struct Branch
{
    QString bank, branch, city, ifsCode;
    QString searched; ///< all four, folded, for the search
};

/// The branches of all banks as a file lists them.
struct BranchList
{
    std::vector<Branch> branches;
    QString fault; ///< why there is none, or ""

    /// The first `limit` branches in which every word occurs, in whatever field and case; all of them for no word.
    /// `found` says how many there are in all.
    std::vector<const Branch *> find(const QString &words, qsizetype limit, qsizetype &found) const;
};

/// A comma-separated text with a heading line that names at least BANK, BRANCH, CITY and IFSC, in any order and case;
/// other columns are ignored. Skipped are lines that are no records, that have not as many fields as the heading, that
/// bear no bank or no valid IFS code, or a text longer than the fields it is meant for.
BranchList branchesOf(const QString &csv);

/// The same of a file in UTF-8 of at most `largestFile` bytes.
inline constexpr qint64 largestFile = 128LL * 1024 * 1024;
BranchList readBranches(const QString &path);

} // namespace ledgora::banklookup
