#pragma once

#include "documents/FirmTexts.h"
#include "store/Cells.h"
#include <QHash>
#include <map>

namespace ledgora {

class Connection;

/// The parties of many documents, from the directory as it was in each document's financial year: name and address of a
/// company of the host change, and a document shows those that held. The directory is read once, a year's history when
/// its first document comes.
class DocumentParties
{
public:
    DocumentParties(Connection &db, const QString &hostCode);

    /// Puts name, PAN, GSTIN and address of a party into a document of the financial year that starts in `year`. False
    /// for a code that is not in the directory, which leaves them empty.
    bool fill(DocumentHead &document, const QString &code, int year);

private:
    struct Year
    {
        Cells directory;
        QHash<QString, int> rows;
    };
    const Year &of(int year);

    Connection &m_db;
    Cells m_directory;
    std::map<int, Year> m_years;
};

} // namespace ledgora
