#pragma once

#include "Boxes.h"
#include "Database.h"
#include "Keys.h"
#include "Print.h"
#include "controls/Grid.h"
#include "host/ClsGST.h"
#include "platform/Reporter.h"
#include "reports/ReportRows.h"
#include <QDate>
#include <QPointer>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace ledgora::test {

/// The report engine as a test sees it: notes what is asked of it, one text an operation, and does nothing.
class NotingReporter : public Reporter
{
public:
    void newreportnew(const QString &templatePath) override;
    void SetText(const QString &placeholder, const PlaceholderValue &value) override; ///< "#BILL_NO#=7"
    void ShowReport(bool flag) override;
    void SaveToPDF(const QString &path, int option) override;
    void SaveToRTF(const QString &path) override;
    void SetCol130(bool wide) override;
    void WinModeReport(bool on) override;
    void NewReport() override;
    void WriteToReport(const ReportRow &row) override; ///< goes to `rows`, not into the notes
    void PrintText(const QString &text) override;
    void createtable(int first, int cells) override;
    void SetNotice(const QString &text) override { rows().SetNotice(text); }
    void initReport(bool fresh, bool flag) override;
    void LoadPageSetup(const QString &templatePath) override;
    void SetFontSizeBeforeAppendFile(const QString &text, int fontSize) override;
    void OpenMasterFile(const QString &templatePath) override;
    bool LastMasFileOpenOK() const override { return masterOpens(); }
    void NewSetText(const QString &placeholder, const PlaceholderValue &value) override;
    void SaveMasterFile(const QString &path) override;
    void AppendFile(const QString &path) override;
    void AbortReport() override;
    void BeginPdfRun() override;
    void AddMasterToPdf(const QString &path) override;
    std::vector<PdfFault> EndPdfRun() override;
    void SetProgress(Progress) override {}
    QString LastError() const override { return lastError(); }

    /// What was asked of the engine of the running test.
    static QStringList &asked();
    /// What it answers to LastMasFileOpenOK and LastError; set by the test, true and "" at its begin.
    static bool &masterOpens();
    static QString &lastError();
    /// The text report of the running test.
    static ReportRows &rows();

private:
    QStringList m_pdfFiles; ///< of the run of PDF files; all of them fail when LastError is set
};

/// Company 1 of Delhi, SHARMA & ASSOCIATES, as the home screen chooses it.
void chooseCompany();

/// Name of the control that has the keys; of the grid while one of its cells is edited.
QString nameOfFocus();

/// One database a suite, empty at the begin of each test, and rows in it that other screens would have written.
class RowsTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { s_data = std::make_unique<Database>(); }
    static void TearDownTestSuite() { s_data.reset(); }
    void SetUp() override { data().empty(); }

    static Database &data() { return *s_data; }
    static QString errorLog();

    static void addCompany(int id, const QString &name, const QString &state = "DELHI", const QString &password = {});
    static void addClient(int id, const QString &name, const QString &state);
    static void addBill(int id, int number, QDate date, int client, int amount, int seriesId = 0);
    static void addReceipt(int id, int billId, int amount, int discount = 0);
    static QString clientCode(int id); ///< "BILL~OTHCL-000001"

private:
    static inline std::unique_ptr<Database> s_data;
};

/// A working period as host "C" in June 2024, over a fresh folder a test, and the hands of a user: keys go to the
/// window that has them at that moment. A test that leaves a line in the error log fails, unless it said that failures
/// are part of it; a box that nobody expects fails it too, and is closed.
class ScreenTest : public RowsTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    Boxes boxes; ///< what the test expects to be told and asked

    QString folder() const { return m_folder.path(); }
    ClsGST &gst() { return *m_gst; }
    void release() { m_gst.reset(); } ///< as a host does at the end of the working period
    void failuresAreExpected() { m_mayLog = true; }

    /// Shows a screen as a window and waits until it has the keys. The test owns it.
    void show(QWidget *screen);
    QWidget *screen() const { return m_screen; }
    /// The control of that name.
    template<class Control>
    Control *find(const char *name) const
    {
        auto *control = m_screen ? m_screen->findChild<Control *>(QLatin1String(name)) : nullptr;
        if (!control)
            throw std::runtime_error(std::string("the screen has no control ") + name);
        return control;
    }
    QString text(const char *lineEdit) const;
    QString choice(const char *list) const;
    bool isShown(const char *control) const { return find<QWidget>(control)->isVisible(); }
    QString focus();

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1);
    void alt(char letter);
    void type(const QString &text);
    /// Clicks into a field.
    void click(const char *control);
    /// Clicks into a field, and types over what it holds.
    void retype(const char *lineEdit, const QString &text);
    /// Ctrl+V into what has the keys, of a text that another program put on the clipboard.
    void paste(const QString &text);
    /// Clicks into a field, and pastes over what it holds.
    void repaste(const char *lineEdit, const QString &text);
    /// A key of a keyboard whose letter is not of the Latin alphabet.
    void pressLetter(const QString &letter);
    void clickCell(const char *grid, int row, int column);

private:
    Keys keys() const { return Keys(m_screen); }

    QTemporaryDir m_folder;
    std::unique_ptr<ClsGST> m_gst;
    QPointer<QWidget> m_screen;
    bool m_mayLog = false;
};

} // namespace ledgora::test
