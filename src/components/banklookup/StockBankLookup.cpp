#include "components/banklookup/StockBankLookup.h"

#include "components/banklookup/BranchDialog.h"
#include "components/banklookup/BranchList.h"
#include "store/ErrorLog.h"
#include "store/Settings.h"
#include <QApplication>
#include <QFileInfo>

namespace ledgora::banklookup {

namespace {

constexpr qint64 unusableFile = 53;
constexpr float dialogWidth = 860;
constexpr float dialogHeight = 460;

void fill(BankChoice &choice, const Branch *branch)
{
    choice = branch ? BankChoice{branch->bank, branch->branch, branch->ifsCode, QString()} : BankChoice{};
}

} // namespace

void StockBankLookup::InitMe(const QString &appPath, Connection *&, const QString &, float ratX, float ratY,
                             float ratFS)
{
    m_folder = appPath;
    m_ratX = ratX;
    m_ratY = ratY;
    m_ratFS = ratFS;
}

void StockBankLookup::GetMICRIFSC(BankChoice &choice, const QString &bank, const QString &city, const QString &branch)
{
    const ErrorSite site("BANKLOOKUP", "GETMICRIFSC");
    const QString path = findFile(m_folder, QStringLiteral("ifsc.csv"));
    if (!QFileInfo::exists(path))
        return;
    const BranchList list = readBranches(path);
    if (!list.fault.isEmpty()) {
        WriteErrLog(unusableFile, path + QStringLiteral(": ") + list.fault, QLatin1String(progId));
        return;
    }
    const QString words = QString(bank + u' ' + city + u' ' + branch).simplified();
    qsizetype found = 0;
    const auto hits = list.find(words, 1, found);
    if (found == 1)
        return fill(choice, hits.front());
    BranchDialog dialog(list, words, QApplication::activeWindow());
    QFont font = dialog.font();
    font.setPointSizeF(font.pointSizeF() * m_ratFS);
    dialog.setFont(font);
    dialog.resize(int(dialogWidth * m_ratX), int(dialogHeight * m_ratY));
    fill(choice, dialog.exec() == QDialog::Accepted ? dialog.chosen() : nullptr);
}

} // namespace ledgora::banklookup
