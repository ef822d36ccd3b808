#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace ledgora::app {

class Clerk;

/// What a part of the demonstration works with.
struct DemoDesk
{
    Clerk &clerk;
    QWidget &window;
    std::function<void(const QString &what, const std::function<void()> &keys)> step;
    std::function<void(bool holds, const QString &what)> check;
    std::function<double(const QString &query)> stored; ///< the first value of a query, -1 for none
    std::function<void(const char *name)> look;
    QString out; ///< folder of the PDF files
};

/// Money comes in for the three bills of the demonstration: a part payment, a cheque less TDS, a discount, one receipt
/// over two bills, whose preview is saved; one that would overpay is refused. The home screen has the keys before and
/// after.
inline constexpr auto receiptPdf = "Receipt_4.pdf";
void keyInReceipts(const DemoDesk &desk);

} // namespace ledgora::app
