#include "host/ClsOth.h"

#include <QCheckBox>
#include <QFontInfo>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <cmath>
#include <vector>

namespace ledgora {

namespace {

int scaled(int length, float ratio)
{
    return length <= 0 || length >= QWIDGETSIZE_MAX ? length : int(std::lround(double(length) * double(ratio)));
}

double toOneDecimal(double size)
{
    return std::round(size * 10) / 10;
}

bool isPassedOver(const QWidget &widget)
{
    const auto *frame = qobject_cast<const QFrame *>(&widget);
    const auto *label = qobject_cast<const QLabel *>(&widget);
    const bool line = frame && (frame->frameShape() == QFrame::HLine || frame->frameShape() == QFrame::VLine);
    const bool picture = label && !label->pixmap(Qt::ReturnByValue).isNull();
    return line || picture || qobject_cast<const QMenu *>(&widget) || qobject_cast<const QMenuBar *>(&widget)
           || qobject_cast<const QProgressBar *>(&widget);
}

/// Buttons and check boxes keep a little air around their captions.
double wantedFontSize(const QWidget &widget, double former, float ratio)
{
    constexpr double captionShare = 0.98;
    if (isPassedOver(widget))
        return former;
    const bool caption = qobject_cast<const QPushButton *>(&widget) || qobject_cast<const QCheckBox *>(&widget);
    return toOneDecimal(former * double(ratio)) * (caption ? captionShare : 1);
}

void setFontSize(QWidget &widget, double wanted)
{
    constexpr double smallestSize = 1;
    const auto sized = [&widget](double size) {
        QFont font = widget.font();
        font.setPointSizeF(size);
        return font;
    };
    const auto shown = [&sized](double size) { return QFontInfo(sized(size)).pointSizeF(); };
    const double size = fittingFontSize(wanted, shown);
    if (size > 0 && qFuzzyCompare(widget.font().pointSizeF(), size))
        return; // it came from the parent
    if (size > 0)
        return widget.setFont(sized(size));
    const double whole = std::max(std::floor(wanted), smallestSize);
    QFont font = sized(whole);
    if (shown(whole) > whole)
        font.setFamily(QStringLiteral("Arial"));
    widget.setFont(font);
}

/// In points, also of a font that was given in pixels.
double fontSize(const QWidget &widget)
{
    const double points = widget.font().pointSizeF();
    return points > 0 ? points : widget.fontInfo().pointSizeF();
}

/// Children inherit the size of their parent, so every former size is read before the first one changes.
void scaleFonts(QWidget &screen, float ratio)
{
    std::vector<std::pair<QWidget *, double>> formerSizes{{&screen, fontSize(screen)}};
    for (QWidget *widget : screen.findChildren<QWidget *>())
        formerSizes.emplace_back(widget, fontSize(*widget));
    for (const auto &[widget, former] : formerSizes)
        setFontSize(*widget, wantedFontSize(*widget, former, ratio));
}

/// Sizes and places by the ratios of the two axes.
class Scaler
{
public:
    Scaler(float ratioX, float ratioY) : m_x(ratioX), m_y(ratioY) {}

    QSize size(QSize former) const { return {scaled(former.width(), m_x), scaled(former.height(), m_y)}; }
    QPoint place(QPoint former) const
    {
        return {int(std::lround(double(former.x()) * double(m_x))), int(std::lround(double(former.y()) * double(m_y)))};
    }
    void scaleLimits(QWidget &widget) const
    {
        widget.setMinimumSize(size(widget.minimumSize()));
        widget.setMaximumSize(size(widget.maximumSize()));
    }
    void scaleLayout(QLayout &layout) const;
    void scaleGeometry(QWidget &widget) const;

private:
    float m_x;
    float m_y;
};

void Scaler::scaleLayout(QLayout &layout) const
{
    const QMargins margins = layout.contentsMargins();
    layout.setContentsMargins(scaled(margins.left(), m_x), scaled(margins.top(), m_y), scaled(margins.right(), m_x),
                              scaled(margins.bottom(), m_y));
    if (auto *grid = qobject_cast<QGridLayout *>(&layout)) {
        grid->setHorizontalSpacing(scaled(grid->horizontalSpacing(), m_x));
        grid->setVerticalSpacing(scaled(grid->verticalSpacing(), m_y));
    } else {
        const auto *box = qobject_cast<QBoxLayout *>(&layout);
        const bool down =
            box && (box->direction() == QBoxLayout::TopToBottom || box->direction() == QBoxLayout::BottomToTop);
        layout.setSpacing(scaled(layout.spacing(), down ? m_y : m_x));
    }
    for (int i = 0; i < layout.count(); ++i) {
        if (QSpacerItem *spacer = layout.itemAt(i)->spacerItem()) {
            const QSize wanted = size(spacer->sizeHint());
            const QSizePolicy policy = spacer->sizePolicy();
            spacer->changeSize(wanted.width(), wanted.height(), policy.horizontalPolicy(), policy.verticalPolicy());
        }
    }
    layout.invalidate();
}

/// A control that sizes itself by its text is moved and not resized.
void Scaler::scaleGeometry(QWidget &widget) const
{
    widget.move(place(widget.pos()));
    if (!widget.property("AutoSize").toBool())
        widget.resize(size(widget.size()));
}

QSet<QWidget *> placedByLayouts(const QList<QLayout *> &layouts)
{
    QSet<QWidget *> placed;
    for (const QLayout *layout : layouts) {
        for (int i = 0; i < layout->count(); ++i)
            placed.insert(layout->itemAt(i)->widget());
    }
    return placed;
}

/// Whether somebody else may place children in it; the parts of a composite control are its own affair.
bool isContainer(const QWidget *widget, const QWidget &screen)
{
    const QString kind = widget ? QLatin1String(widget->metaObject()->className()) : QString();
    return widget == &screen || kind == QLatin1String("QWidget") || kind == QLatin1String("QFrame")
           || kind == QLatin1String("QGroupBox");
}

} // namespace

double fittingFontSize(double wanted, const std::function<double(double)> &shown)
{
    double size = wanted;
    while (size > 0 && shown(size) > size)
        size = toOneDecimal(size - 0.1);
    return std::max(size, 0.0);
}

ClsOth::ClsOth(float ratioX, float ratioY, float ratioFontSize) : m_ratX(ratioX), m_ratY(ratioY), m_ratFS(ratioFontSize)
{
}

void ClsOth::Resize_For_Resolution(QWidget &screen)
{
    const bool unchanged = m_ratX == 1 && m_ratY == 1 && m_ratFS == 1;
    if (unchanged || m_ratX <= 0 || m_ratY <= 0 || m_ratFS <= 0)
        return;
    scaleFonts(screen, m_ratFS);
    const Scaler scaler(m_ratX, m_ratY);
    const QList<QLayout *> layouts = screen.findChildren<QLayout *>();
    const QSet<QWidget *> placed = placedByLayouts(layouts);
    for (QWidget *widget : screen.findChildren<QWidget *>()) {
        if (isPassedOver(*widget))
            continue;
        scaler.scaleLimits(*widget);
        if (!widget->isWindow() && !placed.contains(widget) && isContainer(widget->parentWidget(), screen))
            scaler.scaleGeometry(*widget);
    }
    for (QLayout *layout : layouts)
        scaler.scaleLayout(*layout);
    screen.resize(scaler.size(screen.size()));
}

} // namespace ledgora
