#pragma once

#include "documents/FirmTexts.h"
#include <QDate>
#include <QList>
#include <QStringList>

namespace ledgora {

class Connection;

/// Which bills or receipts of a company are meant. What is empty, 0 or invalid asks for nothing; what is given must all
/// hold.
struct DocumentChoice
{
    struct Numbers
    {
        int from = 0, to = 0;
    };
    int firmId = 0;
    std::vector<Numbers> numbers; ///< any of them
    QStringList parties;          ///< any of these codes
    int seriesId = 0;
    int year = 0; ///< starting year of the financial year
    QDate from, to;
};

/// Their ids, by date, number and id.
QList<int> chosenDocuments(Connection &db, DocumentKind kind, const DocumentChoice &choice);

} // namespace ledgora
