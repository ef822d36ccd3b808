#include "Screens.h"

#include "controls/ChoiceBox.h"
#include "host/WorkingState.h"
#include "platform/Registry.h"
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QTest>

namespace ledgora::test {

namespace {

QString quoted(QString text)
{
    return '\'' + text.replace('\'', "''") + '\'';
}

} // namespace

QStringList &NotingReporter::asked()
{
    static QStringList notes;
    return notes;
}

void NotingReporter::newreportnew(const QString &templatePath)
{
    asked() << "newreportnew " + QFileInfo(templatePath).fileName();
}

bool &NotingReporter::masterOpens()
{
    static bool opens = true;
    return opens;
}

QString &NotingReporter::lastError()
{
    static QString error;
    return error;
}

ReportRows &NotingReporter::rows()
{
    static ReportRows report;
    return report;
}

void chooseCompany()
{
    CompanyState company;
    company.firmId = 1;
    company.firmName = "SHARMA & ASSOCIATES";
    company.firmStateCode = "07";
    company.billCopy = company.recpCopy = 0;
    company.apply();
}

namespace {

QString replacement(const QString &placeholder, const PlaceholderValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    return placeholder + '=' + (text ? *text : QString::number(std::get<double>(value), 'g', 15));
}

} // namespace

void NotingReporter::SetText(const QString &placeholder, const PlaceholderValue &value)
{
    asked() << replacement(placeholder, value);
}

void NotingReporter::NewSetText(const QString &placeholder, const PlaceholderValue &value)
{
    asked() << replacement(placeholder, value);
}

void NotingReporter::WinModeReport(bool on)
{
    asked() << QString("WinModeReport ") + (on ? "True" : "False");
}

void NotingReporter::SetCol130(bool wide)
{
    asked() << QString("SetCol130 ") + (wide ? "True" : "False");
    rows().SetCol130(wide);
}

void NotingReporter::NewReport()
{
    asked() << "NewReport";
    rows().NewReport();
}

void NotingReporter::WriteToReport(const ReportRow &row)
{
    rows().WriteToReport(row);
}

void NotingReporter::PrintText(const QString &text)
{
    rows().PrintText(text);
}

void NotingReporter::createtable(int first, int cells)
{
    rows().createtable(first, cells);
}

void NotingReporter::initReport(bool fresh, bool)
{
    asked() << QString("initReport ") + (fresh ? "True" : "False");
}

void NotingReporter::LoadPageSetup(const QString &templatePath)
{
    asked() << "LoadPageSetup " + QFileInfo(templatePath).fileName();
}

void NotingReporter::SetFontSizeBeforeAppendFile(const QString &text, int fontSize)
{
    asked() << "SetFontSizeBeforeAppendFile " + QString::number(text.size()) + ' ' + QString::number(fontSize);
}

void NotingReporter::OpenMasterFile(const QString &templatePath)
{
    asked() << "OpenMasterFile " + QFileInfo(templatePath).fileName();
}

void NotingReporter::SaveMasterFile(const QString &path)
{
    asked() << "SaveMasterFile " + QFileInfo(path).fileName();
}

void NotingReporter::AppendFile(const QString &path)
{
    asked() << "AppendFile " + QFileInfo(path).fileName();
}

void NotingReporter::AbortReport()
{
    asked() << "AbortReport";
}

void NotingReporter::BeginPdfRun()
{
    asked() << "BeginPdfRun";
    m_pdfFiles.clear();
}

void NotingReporter::AddMasterToPdf(const QString &path)
{
    asked() << "AddMasterToPdf " + QFileInfo(path).fileName();
    m_pdfFiles << path;
}

std::vector<PdfFault> NotingReporter::EndPdfRun()
{
    asked() << "EndPdfRun";
    std::vector<PdfFault> faults;
    for (const QString &path : m_pdfFiles)
        faults.push_back({path, lastError()});
    return lastError().isEmpty() ? std::vector<PdfFault>() : faults;
}

void NotingReporter::ShowReport(bool)
{
    asked() << "ShowReport";
}

void NotingReporter::SaveToPDF(const QString &path, int)
{
    asked() << "SaveToPDF " + path;
}

void NotingReporter::SaveToRTF(const QString &path)
{
    asked() << "SaveToRTF " + path;
}

void ScreenTest::SetUp()
{
    RowsTest::SetUp();
    NotingReporter::asked().clear();
    NotingReporter::masterOpens() = true;
    NotingReporter::lastError().clear();
    Registry::instance().add<Reporter>(Reporter::progId, [] { return std::make_unique<NotingReporter>(); });
    ASSERT_TRUE(QDir(folder()).mkdir("GST_Templates"));
    m_gst = std::make_unique<ClsGST>();
    m_gst->AppPath(folder());
    m_gst->TmpPath(folder());
    m_gst->CnnObj(&data().db());
    m_gst->GetRegYr(2024);
    m_gst->ObjMdi(nullptr);
    ASSERT_TRUE(m_gst->CallBilling("ZoRbItWaLkErX", "C", 2));
    CompanyState().apply();
}

void ScreenTest::TearDown()
{
    delete m_screen;
    if (!m_mayLog) {
        EXPECT_EQ(errorLog(), "");
    }
    m_gst.reset();
}

QString RowsTest::errorLog()
{
    QFile log(gLogPath);
    return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
}

void RowsTest::addCompany(int id, const QString &name, const QString &state, const QString &password)
{
    data().run(QStringLiteral("Insert Into GST_FirmMas (FirmSrNo,Nm,StateNm,Pass,BankAcName,BankName,BankBrAdd,"
                              "BankAcNo,BankIFSC,PayComments,SignName,SignDesig) Values (%1,%2,%3,%4,'','','','','','',"
                              "'','')")
                   .arg(id)
                   .arg(quoted(name), quoted(state), quoted(password)));
}

QString RowsTest::clientCode(int id)
{
    return QStringLiteral("BILL~OTHCL-%1").arg(id, 6, 10, QLatin1Char('0'));
}

void RowsTest::addClient(int id, const QString &name, const QString &state)
{
    data().run(QStringLiteral("Insert Into GST_OthCl (OthClSrNo,OthClCode,Nm,StateNm) Values (%1,%2,%3,%4)")
                   .arg(id)
                   .arg(quoted(clientCode(id)), quoted(name), quoted(state)));
}

/// A bill of company 1 without tax, of one line.
void RowsTest::addBill(int id, int number, QDate date, int client, int amount, int seriesId)
{
    const int year = date.month() < 4 ? date.year() - 1 : date.year();
    data().run(QStringLiteral("Insert Into GST_BillM Values (%1,1,%2,%3,%4,%5,'%6','DELHI','NO','Narration %5')")
                   .arg(id)
                   .arg(year)
                   .arg(quoted(clientCode(client)))
                   .arg(seriesId)
                   .arg(number)
                   .arg(date.toString(Qt::ISODate)));
    data().run(QStringLiteral("Insert Into GST_BillD Values (%1,1,'Work %1','','',0,%2,0,%2,'N',0,0,0,0,0,0,%2)")
                   .arg(id)
                   .arg(amount));
}

void RowsTest::addReceipt(int id, int billId, int amount, int discount)
{
    data().run(
        QStringLiteral("Insert Into GST_RecpD Values (%1,1,%2,%3,%4,0)").arg(id).arg(billId).arg(amount).arg(discount));
}

void ScreenTest::show(QWidget *screen)
{
    m_screen = screen;
    screen->resize(1280, 720);
    screen->show();
    screen->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(screen));
    Keys::settle();
}

QString ScreenTest::text(const char *lineEdit) const
{
    return find<QLineEdit>(lineEdit)->text();
}

QString ScreenTest::choice(const char *list) const
{
    return find<ChoiceBox>(list)->currentText();
}

QString ScreenTest::focus()
{
    keys().target();
    return nameOfFocus();
}

QString nameOfFocus()
{
    for (const QWidget *widget = QApplication::focusWidget(); widget; widget = widget->parentWidget()) {
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_"))
            return widget->objectName();
    }
    return {};
}

void ScreenTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times)
{
    keys().press(key, modifiers, times);
}

void ScreenTest::alt(char letter)
{
    keys().alt(letter);
}

void ScreenTest::type(const QString &text)
{
    keys().type(text);
}

void ScreenTest::click(const char *control)
{
    keys().click(find<QWidget>(control));
}

void ScreenTest::retype(const char *lineEdit, const QString &text)
{
    keys().retype(find<QWidget>(lineEdit), text);
}

void ScreenTest::paste(const QString &text)
{
    QApplication::clipboard()->setText(text);
    press(Qt::Key_V, Qt::ControlModifier);
}

void ScreenTest::repaste(const char *lineEdit, const QString &text)
{
    click(lineEdit);
    press(Qt::Key_A, Qt::ControlModifier);
    paste(text);
}

void ScreenTest::pressLetter(const QString &letter)
{
    keys().target();
    QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, letter, Qt::NoModifier);
    Keys::settle();
}

void ScreenTest::clickCell(const char *grid, int row, int column)
{
    keys().target();
    auto *view = find<Grid>(grid);
    const QModelIndex cell = view->model()->index(row, column);
    view->scrollTo(cell);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(cell).center());
    Keys::settle();
}

} // namespace ledgora::test
