#include "WindowTest.h"

#include "controls/ChoiceBox.h"
#include "host/WorkingState.h"
#include <QLineEdit>
#include <QScreen>
#include <QTest>

namespace ledgora::test {

namespace {

/// The server of the test run, with the suite's database as an office's.
class ServerOfTheRun : public app::OfficeServer
{
public:
    explicit ServerOfTheRun(QString database) : m_database(std::move(database)) {}

    bool start(const std::stop_token &) override { return true; }
    QString error() const override { return {}; }
    st_mysql *connectOffice(const std::stop_token &) override { return connectToTestServer(m_database); }
    bool endStatement(unsigned long) override { return false; }
    QString place() const override { return m_database; }

private:
    QString m_database;
};

} // namespace

void WindowTest::SetUp()
{
    RowsTest::SetUp();
    addCompany(1, "SHARMA & ASSOCIATES");
    addClient(Ashok, "ASHOK TRADERS", "DELHI");
    addClient(Bharat, "BHARAT MILLS", "MAHARASHTRA");
    addClient(Chetak, "CHETAK STORES", "DELHI");
    m_office = std::make_unique<app::Office>(m_folder.filePath("office"), "C",
                                             std::make_unique<ServerOfTheRun>(data().name()));
    ASSERT_TRUE(m_office->open()) << m_office->error().toStdString();
    m_window = std::make_unique<app::MainWindow>(*m_office);
    m_window->showMaximized();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get(), 10'000));
    const int width = m_window->screen()->size().width();
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_window->width() == width; })) << "no window manager";
}

void WindowTest::TearDown()
{
    delete m_screen;
    EXPECT_EQ(errorLog(), "");
    m_window.reset();
    m_office.reset();
}

void WindowTest::show(QWidget *screen)
{
    m_screen = screen;
    m_window->showScreen(*screen);
    Hands::awaitKeys();
}

QString WindowTest::text(const char *lineEdit) const
{
    return find<QLineEdit>(lineEdit)->text();
}

QString WindowTest::choice(const char *list) const
{
    return find<ChoiceBox>(list)->currentText();
}

void WindowTest::clickCell(const char *grid, int row, int column, int clicks)
{
    auto *view = find<Grid>(grid);
    const QModelIndex cell = view->model()->index(row, column);
    view->scrollTo(cell);
    const QPoint at = view->visualRect(cell).center();
    clicks == 1 ? hands.click(view->viewport(), at) : hands.doubleClick(view->viewport(), at);
}

} // namespace ledgora::test
