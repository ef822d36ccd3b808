#include "components/banklookup/BranchList.h"

#include "components/banklookup/CsvReader.h"
#include "store/Identifiers.h"
#include <QFile>
#include <algorithm>
#include <array>

namespace ledgora::banklookup {

namespace {

constexpr qsizetype longestText = 255; // of the fields that take bank and branch

/// Where the columns stand: BANK, BRANCH, CITY, IFSC; -1 for a missing one.
using Columns = std::array<qsizetype, 4>;

Columns columnsOf(const QStringList &heading)
{
    QStringList names;
    for (const QString &name : heading)
        names << name.trimmed().toUpper();
    return {names.indexOf(u"BANK"), names.indexOf(u"BRANCH"), names.indexOf(u"CITY"), names.indexOf(u"IFSC")};
}

Branch branchOf(const QStringList &fields, const Columns &columns)
{
    std::array<QString, 4> texts;
    for (size_t i = 0; i < texts.size(); ++i)
        texts[i] = fields.at(columns[i]).simplified();
    const QString searched = texts[0] + u' ' + texts[1] + u' ' + texts[2] + u' ' + texts[3];
    return {texts[0], texts[1], texts[2], texts[3], searched.toCaseFolded()};
}

bool isUsable(const Branch &branch)
{
    return !branch.bank.isEmpty() && !branch.ifsCode.isEmpty() && isIfsCode(branch.ifsCode)
           && std::max({branch.bank.size(), branch.branch.size(), branch.city.size()}) <= longestText;
}

} // namespace

std::vector<const Branch *> BranchList::find(const QString &words, qsizetype limit, qsizetype &found) const
{
    const QStringList wanted = words.toCaseFolded().simplified().split(u' ', Qt::SkipEmptyParts);
    std::vector<const Branch *> hits;
    found = 0;
    for (const Branch &branch : branches) {
        if (!std::ranges::all_of(wanted, [&](const QString &word) { return branch.searched.contains(word); }))
            continue;
        if (++found <= limit)
            hits.push_back(&branch);
    }
    return hits;
}

BranchList branchesOf(const QString &csv)
{
    CsvReader reader(csv);
    QStringList fields;
    const Columns columns = reader.next(fields) ? columnsOf(fields) : columnsOf({});
    if (std::ranges::find(columns, -1) != columns.end())
        return {{}, QStringLiteral("the heading does not name BANK, BRANCH, CITY and IFSC")};
    const qsizetype width = fields.size();
    BranchList list;
    while (reader.next(fields)) {
        if (fields.size() != width)
            continue;
        if (Branch branch = branchOf(fields, columns); isUsable(branch))
            list.branches.push_back(std::move(branch));
    }
    if (list.branches.empty())
        list.fault = QStringLiteral("there is no branch in it");
    return list;
}

BranchList readBranches(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    const QByteArray csv = file.read(largestFile + 1);
    if (csv.size() > largestFile)
        return {{}, QStringLiteral("the file is too large")};
    return branchesOf(QString::fromUtf8(csv));
}

} // namespace ledgora::banklookup
