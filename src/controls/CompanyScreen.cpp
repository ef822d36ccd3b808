#include "controls/CompanyScreen.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace ledgora {

namespace {

/// Every company screen that lives, in the order of their making.
std::vector<CompanyScreen *> &screens()
{
    static std::vector<CompanyScreen *> all;
    return all;
}

} // namespace

CompanyScreen::CompanyScreen(QWidget *parent) : Screen(parent)
{
    bindToCompany(CompanyState::current());
    screens().push_back(this);
}

CompanyScreen::~CompanyScreen()
{
    std::erase(screens(), this);
}

void CompanyScreen::open(const QMetaObject &kind, CompanyScreen *(*make)())
{
    const auto found = std::ranges::find_if(screens(), [&kind](const CompanyScreen *screen) {
        return screen->metaObject() == &kind && screen->boundCompany().firmId == gFirmId && !screen->isClosed();
    });
    CompanyScreen *screen = found == screens().end() ? make() : *found;
    if (found != screens().end())
        screen->renew(CompanyState::current());
    screen->present();
}

void CompanyScreen::renewOf(qint32 firmId, const QString &name, const QString &stateCode)
{
    for (CompanyScreen *screen : screens()) {
        CompanyState company = screen->boundCompany();
        if (company.firmId != firmId)
            continue;
        company.firmName = name;
        company.firmStateCode = stateCode;
        screen->renew(company);
    }
}

void CompanyScreen::renew(const CompanyState &company)
{
    m_due = company;
    if (!hasOpenEntry())
        entryEnded();
}

void CompanyScreen::entryEnded()
{
    const auto due = std::exchange(m_due, std::nullopt);
    if (!due)
        return;
    bindToCompany(*due);
    run([this] {
        tellCompany();
        bringUpToDate();
    });
}

void CompanyScreen::tellCompany()
{
    if (m_caption.isEmpty())
        m_caption = windowTitle();
    setWindowTitle(m_caption + QStringLiteral(" - ") + gFirmName);
}

void CompanyScreen::dismissOf(qint32 firmId)
{
    const auto all = screens();
    for (CompanyScreen *screen : all) {
        if (screen->boundCompany().firmId == firmId)
            screen->dismiss();
    }
}

void CompanyScreen::dismissAll()
{
    const auto all = screens();
    for (CompanyScreen *screen : all)
        screen->dismiss();
}

} // namespace ledgora
