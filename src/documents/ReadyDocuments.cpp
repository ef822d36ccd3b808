#include "documents/ReadyDocuments.h"

#include "documents/Preview.h"
#include "documents/StoredBill.h"
#include "documents/StoredReceipt.h"
#include "host/WorkingState.h"
#include "masters/CompanyStore.h"
#include "store/Connection.h"
#include "store/Dates.h"

namespace ledgora {

namespace {

FirmTexts textsOfCompany(Connection &db, DocumentKind kind)
{
    Recordset company = companyRow(db, gFirmId);
    return firmTexts(company, kind);
}

constexpr auto partyGone = "its client is not there any more";

/// A document that nobody has received would pass as one: it is not made.
ReadyDocument named(DocumentKind kind, const QString &number, QDate date, const DocumentHead &head, bool hasParty)
{
    const QString noun = documentNoun(kind);
    return {.name = noun + ' ' + number + " dated " + formatDate(date, "dd/MM/yyyy"),
            .fileName = noun + '-' + safeInFileName(number) + '-' + date.toString(QStringLiteral("ddMMyyyy")),
            .partyName = head.inNameCase(head.partyName),
            .templatePath = {},
            .placeholders = {},
            .fault = hasParty ? QString() : QString(partyGone)};
}

void fillBill(ReadyDocument &ready, const StoredBill &bill)
{
    if (!bill.taxType)
        return ready.fail("'Tax Applicability' Not Available !");
    ready.templatePath = billTemplatePath(gTmplPath, gFirmId, gTmplCustom == 1, *bill.taxType, gBillCopy == 1);
    ready.fail(missingTemplateFault(ready.templatePath));
    if (auto placeholders = billPlaceholders(bill.document))
        ready.placeholders = std::move(*placeholders);
    else
        ready.fail("it has more lines than the ten that a bill's document has room for");
}

} // namespace

void ReadyDocument::fail(const QString &why)
{
    if (fault.isEmpty())
        fault = why;
}

ReadyDocuments::ReadyDocuments(Connection &db, DocumentKind kind)
    : m_db(db)
    , m_kind(kind)
    , m_firm(textsOfCompany(db, kind))
    , m_parties(db, gHostCode)
{
}

std::vector<ReadyDocument> ReadyDocuments::make(const QList<int> &ids)
{
    return m_kind == DocumentKind::Bill ? bills(ids) : receipts(ids);
}

std::vector<ReadyDocument> ReadyDocuments::bills(const QList<int> &ids)
{
    std::vector<ReadyDocument> all;
    for (StoredBill &bill : storedBills(m_db, ids, m_parties)) {
        bill.document.firm = m_firm;
        bill.document.properCase = gNameCase == 0;
        ReadyDocument ready = named(m_kind, bill.document.billNumber, bill.date, bill.document, bill.hasParty);
        fillBill(ready, bill);
        all.push_back(std::move(ready));
    }
    return all;
}

std::vector<ReadyDocument> ReadyDocuments::receipts(const QList<int> &ids)
{
    std::vector<ReadyDocument> all;
    const QString path = receiptTemplatePath(gTmplPath, gFirmId, gTmplCustom == 1, gRecpCopy == 1);
    for (StoredReceipt &receipt : storedReceipts(m_db, ids, m_parties)) {
        receipt.document.firm = m_firm;
        receipt.document.properCase = gNameCase == 0;
        ReadyDocument ready =
            named(m_kind, receipt.document.receiptNumber, receipt.date, receipt.document, receipt.hasParty);
        ready.templatePath = path;
        ready.fail(missingTemplateFault(ready.templatePath));
        ready.placeholders = receiptPlaceholders(receipt.document);
        all.push_back(std::move(ready));
    }
    return all;
}

QString safeInFileName(const QString &text)
{
    QString safe;
    for (const QChar c : text)
        safe += c.category() == QChar::Other_Control || QStringView(u"/\\:*?\"<>|").contains(c) ? QChar(u'_') : c;
    while (safe.endsWith(u' ') || safe.endsWith(u'.'))
        safe.chop(1);
    return safe;
}

QString documentNoun(DocumentKind kind)
{
    return kind == DocumentKind::Bill ? "Bill" : "Receipt";
}

} // namespace ledgora
