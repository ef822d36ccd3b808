#include "Papers.h"

#include "app/Billing.h"
#include "app/Office.h"
#include "documents/DocumentRun.h"
#include "host/WorkingState.h"
#include "store/Connection.h"
#include "store/Settings.h"
#include "store/SqlText.h"
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

using namespace ledgora;

namespace {

constexpr int worstCompany = 90;
constexpr int firstWorst = 900;
constexpr int sparseCompany = 91;
constexpr int firstSparse = 950;

QString worstLine(const QString &kind, int bill, int line)
{
    QString tax = "0,0,0,0,0,0";
    if (kind == "INTRA")
        tax = "9,8100000,9,8100000,0,0";
    else if (kind == "INTER")
        tax = "0,0,0,0,18,16200000";
    return QString(
               "(%1,%2,'Representation before the Commissioner of Income Tax (Appeals) and the Income Tax Appellate "
               "Tribunal, including drafting of grounds, paper books and written submissions','998221','%3',%4,"
               "99999999,9999999,90000000,'Y',%5,%6)")
        .arg(bill)
        .arg(line)
        .arg(line % 2 ? "FY" : "AY")
        .arg(2014 + line)
        .arg(tax)
        .arg(kind == "NO" ? "90000000" : "106200000");
}

void addWorst(Connection &db)
{
    db.Execute(
        "Insert Into GST_FirmMas Values (90,'RAGHUNATHAN VENKATASUBRAMANIAN KRISHNAMURTHY & ASSOCIATES LLP',"
        "'CHARTERED ACCOUNTANTS AND REGISTERED VALUERS (SECURITIES OR FINANCIAL ASSETS)',"
        "'UNIT 1204-1207, TWELFTH FLOOR, TOWER B, NARIMAN CORPORATE PARK','OPP. WESTERN EXPRESS HIGHWAY METRO STATION, "
        "ANDHERI EAST','MUMBAI SUBURBAN','400069','MAHARASHTRA','02226412345','02226412346','02226412347',"
        "'02226412348','02226412349','9810098100','accounts.receivable@rvkassociates-example.co.in',"
        "'www.rvkassociates-example.co.in','AAAFS1234K','27AAAFS1234K1Z5','RAGHUNATHAN VENKATASUBRAMANIAN "
        "KRISHNAMURTHY & ASSOCIATES LLP','STATE BANK OF INDIA','COMMERCIAL BRANCH, ANDHERI EAST, MUMBAI',"
        "'301234567890123456','SBIN0001234','Interest at 18% a year is charged on bills not paid within fifteen "
        "days of their date.','RAGHUNATHAN V. KRISHNAMURTHY','SENIOR MANAGING PARTNER','')");
    db.Execute(QStringLiteral(
        "Insert Into GST_OthCl Values (90,'BILL~OTHCL-000090','श्री सिद्धिविनायक एग्रो इंडस्ट्रीज एवं "
        "कोल्ड स्टोरेज प्राइवेट लिमिटेड','गाला नं. १२','औद्योगिक वसाहत','पुणे-नाशिक महामार्ग','भोसरी','PUNE','411026',"
        "'MAHARASHTRA','','','','','','AADCK4321F','27AADCK4321F1Z8')"));
    int bill = firstWorst;
    for (const char *kind : {"INTRA", "INTER", "NO"}) {
        db.Execute(
            QString("Insert Into GST_BillM Values (%1,90,2024,'BILL~OTHCL-000090',0,%1,'2024-06-15',"
                    "'MAHARASHTRA','%2','Payable within fifteen days; the cheque to be drawn in favour of the firm "
                    "named above, crossed, account payee only.')")
                .arg(bill)
                .arg(kind));
        for (int line = 1; line <= 10; ++line)
            db.Execute("Insert Into GST_BillD Values " + worstLine(kind, bill, line));
        ++bill;
    }
    db.Execute(
        "Insert Into GST_RecpM Values (900,90,2024,'BILL~OTHCL-000090',0,900,'2024-06-15',99999999,'1',899999999,"
        "'THE MUMBAI DISTRICT CENTRAL CO-OPERATIVE BANK LIMITED','ANDHERI EAST INDUSTRIAL ESTATE','004512',"
        "'14/06/2024','Received with thanks against the bills named, subject to the reconciliation of TDS.')");
    for (int line = 1; line <= 10; ++line)
        db.Execute(QString("Insert Into GST_RecpD Values (900,%1,%2,99999999,0,999999)").arg(line).arg(900 + line % 3));
}

/// A company and a client of which nothing but name and state is known.
void addSparse(Connection &db)
{
    db.Execute("Insert Into GST_FirmMas Values (91,'RAO','','','','','','MAHARASHTRA','','','','','','','','','','','',"
               "'','','','','','','','')");
    db.Execute(
        "Insert Into GST_OthCl Values (91,'BILL~OTHCL-000091','KIRAN','','','','','','','MAHARASHTRA','','','','',"
        "'','','')");
    int bill = firstSparse;
    for (const char *kind : {"INTRA", "INTER", "NO"}) {
        db.Execute(QString("Insert Into GST_BillM Values (%1,91,2024,'BILL~OTHCL-000091',0,%1,'2024-06-15',"
                           "'MAHARASHTRA','%2','')")
                       .arg(bill)
                       .arg(kind));
        db.Execute(
            QString("Insert Into GST_BillD Values (%1,1,'Advice','','',0,500,0,500,'N',0,0,0,0,0,0,500)").arg(bill));
        ++bill;
    }
    db.Execute(
        "Insert Into GST_RecpM Values (950,91,2024,'BILL~OTHCL-000091',0,950,'2024-06-15',500,'0',0,'','','','','')");
}

/// Single or double copy of the bills and receipts of a company, each page a picture.
QString picture(Connection &db, const QString &out, const QString &name, const QList<int> &bills,
                const QList<int> &receipts)
{
    const QTemporaryDir folder;
    for (const bool isDouble : {false, true}) {
        gBillCopy = gRecpCopy = isDouble ? 1 : 0;
        for (const DocumentKind kind : {DocumentKind::Bill, DocumentKind::Receipt}) {
            const RunResult result =
                writeEachDocument(db, *gReporter, kind, kind == DocumentKind::Bill ? bills : receipts,
                                  {.folder = folder.path()}, unwatched());
            if (!result.whole())
                return result.failures.join(' ') + ' ' + result.fault;
            for (const QString &file : result.files) {
                const QString stem = "paper-" + name + (isDouble ? "-double-" : "-single-")
                                     + QFileInfo(file).completeBaseName().section('-', 0, 1).toLower();
                if (QProcess::execute("pdftoppm", {"-r", "100", "-png", file, QDir(out).filePath(stem)}) != 0)
                    return QStringLiteral("a document could not be pictured");
            }
        }
    }
    return {};
}

} // namespace

QString picturePapers(const QString &officeFolder, const QString &outFolder)
{
    app::Office office(officeFolder);
    if (!office.open())
        return office.error();
    const app::Billing billing(office, nullptr);
    Connection &db = office.connection();
    addWorst(db);
    addSparse(db);
    gFirmId = 1;
    QString fault = picture(db, outFolder, QStringLiteral("ordinary"), {1, 2, 3}, {4});
    gFirmId = worstCompany;
    if (fault.isEmpty())
        fault = picture(db, outFolder, QStringLiteral("worst"), {firstWorst, firstWorst + 1, firstWorst + 2}, {900});
    gFirmId = sparseCompany;
    if (fault.isEmpty())
        fault =
            picture(db, outFolder, QStringLiteral("sparse"), {firstSparse, firstSparse + 1, firstSparse + 2}, {950});
    return fault;
}
