#pragma once

#include "Hands.h"
#include "Screens.h"
#include "app/MainWindow.h"
#include "app/Office.h"
#include <QTemporaryDir>

namespace ledgora::test {

/// The program's own window with an office in it, under a window manager, and the hands of a clerk: company 1 of Delhi
/// is chosen and has three clients. For what depends on focus, mouse, menus or several screens; `ledgora_window_test`
/// makes its program.
class WindowTest : public RowsTest
{
protected:
    enum Client { Ashok = 1, Bharat, Chetak };

    void SetUp() override;
    void TearDown() override;

    Boxes boxes; ///< what the test expects to be told and asked; answered when the box has the keys
    Hands hands;

    app::MainWindow &window() { return *m_window; }
    /// A new screen in the window, which owns it.
    template<class Kind>
    Kind *open()
    {
        chooseCompany();
        auto *screen = new Kind;
        show(screen);
        return screen;
    }
    void show(QWidget *screen);
    QWidget *screen() const { return m_screen; }
    /// The control of that name in the screen opened last.
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
    static QString focus() { return nameOfFocus(); }
    void clickCell(const char *grid, int row, int column, int clicks = 1);

private:
    QTemporaryDir m_folder;
    std::unique_ptr<app::Office> m_office;
    std::unique_ptr<app::MainWindow> m_window;
    QPointer<QWidget> m_screen;
};

} // namespace ledgora::test
