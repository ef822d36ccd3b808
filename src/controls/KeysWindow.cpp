#include "controls/KeysWindow.h"

#include <QAbstractButton>
#include <QDialog>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

namespace ledgora {

namespace {

class KeysWindow : public QDialog
{
public:
    KeysWindow(QWidget &window, const std::vector<KeyRow> &rows) : QDialog(&window)
    {
        setObjectName(QStringLiteral("keysWindow"));
        setWindowTitle(QStringLiteral("Keys"));
        auto *grid = new QGridLayout(this);
        grid->setHorizontalSpacing(16);
        grid->setVerticalSpacing(4);
        grid->setColumnStretch(1, 1);
        for (const KeyRow &row : rows) {
            const int line = grid->rowCount();
            auto *key = new QLabel(row.key, this);
            QFont bold = key->font();
            bold.setBold(true);
            key->setFont(bold);
            auto *effect = new QLabel(row.effect, this);
            for (QLabel *label : {key, effect})
                label->setTextFormat(Qt::PlainText);
            grid->addWidget(key, line, 0);
            grid->addWidget(effect, line, 1);
        }
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        switch (event->key()) {
        case Qt::Key_F1:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return accept();
        default:
            QDialog::keyPressEvent(event);
        }
    }
};

QString withoutMark(QString caption)
{
    return caption.remove(u'&').remove(QStringLiteral("<<")).trimmed();
}

} // namespace

std::vector<KeyRow> accessKeys(const QWidget &window)
{
    std::vector<KeyRow> rows;
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled() && !button->shortcut().isEmpty())
            rows.push_back({button->shortcut().toString(QKeySequence::NativeText), withoutMark(button->text())});
    }
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        const QKeySequence key = label->buddy() ? QKeySequence::mnemonic(label->text()) : QKeySequence();
        if (label->isVisible() && !key.isEmpty())
            rows.push_back({key.toString(QKeySequence::NativeText), withoutMark(label->text())});
    }
    return rows;
}

void showKeys(QWidget &window, const std::vector<KeyRow> &rows)
{
    KeysWindow(window, rows).exec();
}

} // namespace ledgora
