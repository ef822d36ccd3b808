// Pictures of all screens: the demonstration, photographed where a screen is worth a look. A picture shows the window
// with whatever list or box stands over it.

#include "app/Demo.h"
#include "store/Dates.h"
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <cstdio>

namespace {

QPixmap pictureOf(QWidget &window)
{
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (QWidget *over : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        if (over && over != &window)
            painter.drawPixmap(over->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint()), over->grab());
    }
    return picture;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    const qsizetype option = words.indexOf(QStringLiteral("--out"));
    if (option < 0 || option + 1 >= words.size()) {
        std::fputs("usage: ledgora_shots --out DIR\n", stderr);
        return 2;
    }
    const QDir out(words.at(option + 1));
    QDir().mkpath(out.path());
    ledgora::setToday(QDate(2024, 6, 15));
    int count = 0;
    const QString fault = ledgora::app::runDemo(out.path(), [&](const QString &name, QWidget &window) {
        pictureOf(window).save(
            out.filePath(QStringLiteral("%1-%2.png").arg(++count, 2, 10, QLatin1Char('0')).arg(name)));
    });
    if (!fault.isEmpty())
        std::fprintf(stderr, "ledgora_shots: %s\n", qPrintable(fault));
    return fault.isEmpty() ? 0 : 1;
}
