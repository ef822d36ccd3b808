// What every screen of the program owes to those who work without a mouse or without seeing it.

#include "app/ClientEditor.h"
#include "bills/frmBillGST.h"
#include "components/reporter/Viewer.h"
#include "masters/frmLogin1.h"
#include "masters/frmMainGST.h"
#include "receipts/frmRecpGST.h"
#include "reports/frmReportsGST.h"
#include "support/Screens.h"
#include <QAccessible>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QTest>

namespace ledgora::test {
namespace {

class Keyboard : public ScreenTest
{
protected:
    /// Whoever can not see the screen hears the name of the control that has the keys.
    static QStringList namelessControls(const QWidget &window)
    {
        QStringList nameless;
        for (QWidget *control : window.findChildren<QWidget *>()) {
            QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(control);
            const QString name = heard ? heard->text(QAccessible::Name).trimmed() : QString();
            const auto *group = qobject_cast<QGroupBox *>(control->parent());
            const bool named =
                !name.isEmpty() && !(group && name == group->title()); // the group's would be a makeshift
            if ((control->focusPolicy() & Qt::TabFocus) && !control->objectName().startsWith("qt_") && !named)
                nameless << control->objectName();
        }
        return nameless;
    }
    /// F1, and what its window says, "Alt+B Bills" a line; closed with F1 again.
    QStringList keys()
    {
        QStringList rows;
        boxes.expectDialog([&rows](QWidget &window) {
            const auto *grid = qobject_cast<QGridLayout *>(window.layout());
            ASSERT_NE(grid, nullptr);
            const auto text = [grid](int row, int column) {
                const QLayoutItem *item = grid->itemAtPosition(row, column);
                return item ? qobject_cast<QLabel *>(item->widget())->text() : QString();
            };
            for (int row = 1; row < grid->rowCount(); ++row)
                rows << text(row, 0) + ' ' + text(row, 1);
            QTest::keyClick(&window, Qt::Key_F1);
        });
        press(Qt::Key_F1);
        EXPECT_TRUE(boxes.wait());
        return rows;
    }
};

TEST_F(Keyboard, EveryControlHasANameToBeHeard)
{
    gFirmId = 1;
    const std::unique_ptr<QWidget> windows[] = {std::make_unique<frmMainGST>(),
                                                std::make_unique<frmBillGST>(),
                                                std::make_unique<frmRecpGST>(),
                                                std::make_unique<frmReportsGST>(),
                                                std::make_unique<app::ClientEditor>(),
                                                std::make_unique<frmLogin1>(),
                                                std::make_unique<reporter::Viewer>(reporter::PageList(), "Bill 1")};
    for (const auto &window : windows)
        EXPECT_EQ(namelessControls(*window), QStringList()) << window->objectName().toStdString();
}

TEST_F(Keyboard, F1ShowsTheKeysThatWorkNow)
{
    struct Step
    {
        const char *name;
        char access; ///< pressed before, 0 for none
        QStringList shown, hidden;
    };
    addCompany(1, "ALPHA");
    show(new frmMainGST);
    const Step steps[] = {
        {"home",
         0,
         {"Alt+B Bills", "Alt+I Settings", "Alt+K BacK", "Enter Opens the bills of the company under the cursor",
          "Esc Closes the screen"},
         {"Alt+M Modify", "Esc Goes back"}},
        {"series", 'S', {"Alt+A Add", "Esc Goes back"}, {"Alt+U Update", "Alt+I Settings", "Esc Cancels the entry"}},
        {"series edit", 'A', {"Alt+U Update", "Enter Goes to the next field", "Esc Cancels the entry"}, {"Alt+A Add"}},
    };
    for (const Step &step : steps) {
        if (step.access)
            alt(step.access);
        const QStringList rows = keys();
        for (const QString &row : step.shown)
            EXPECT_TRUE(rows.contains(row)) << step.name << ": " << row.toStdString();
        for (const QString &row : step.hidden)
            EXPECT_FALSE(rows.contains(row)) << step.name << ": " << row.toStdString();
    }
}

TEST_F(Keyboard, F1WorksInAnOpenCellAndInThePreview)
{
    gFirmId = 1;
    show(new frmBillGST);
    alt('A');
    find<Grid>("vsB")->setFocus();
    EXPECT_TRUE(find<Grid>("vsB")->isEditing());
    type("Aud");
    EXPECT_TRUE(keys().contains("F12 Lists the particulars or narrations used before"));
    type("it");
    alt('C');
    boxes.wait();
    delete screen();
    show(new reporter::Viewer({}, "Bill 1"));
    EXPECT_TRUE(keys().contains("Ctrl+S Save as PDF"));
}

} // namespace
} // namespace ledgora::test
