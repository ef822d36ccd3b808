#pragma once

#include "controls/Screen.h"

namespace ledgora {

/// A screen that works for one company: there is at most one of each class for a company. It keeps the working state
/// it was opened with, whatever the home screen chose since, bears the company's name behind its caption, goes with
/// its company and with the working period.
class CompanyScreen : public Screen
{
    Q_OBJECT
public:
    explicit CompanyScreen(QWidget *parent = nullptr);
    ~CompanyScreen() override;

    /// Shows the screen of this class for the company of the working state: a new one, or the one that is there,
    /// brought up to date, at the end of an entry that is open in it. This is all that a further kind of screen needs.
    template<class Kind>
    static void open()
    {
        open(Kind::staticMetaObject, []() -> CompanyScreen * { return new Kind; });
    }
    /// The company was altered: its screens take name and state over, those with an open entry when that has ended.
    static void renewOf(qint32 firmId, const QString &name, const QString &stateCode);
    /// Closes all screens of a company that is no longer there, unasked: what is being typed would belong to nobody.
    static void dismissOf(qint32 firmId);
    /// Closes the screens of all companies, unasked.
    static void dismissAll();

protected:
    /// Called at the end of loading: the caption gets the company's name.
    void tellCompany();
    /// Whether something is being typed that new lists could take away.
    virtual bool hasOpenEntry() const = 0;
    /// To be called when the open entry has ended: what was altered meanwhile is taken over.
    void entryEnded();
    /// Reads again what the screen took from masters: clients, series, what depends on the company. Runs with the
    /// working state of now.
    virtual void bringUpToDate() = 0;

private:
    static void open(const QMetaObject &kind, CompanyScreen *(*make)());
    void renew(const CompanyState &company);

    QString m_caption;
    std::optional<CompanyState> m_due; ///< the company as it was altered while an entry was open
};

} // namespace ledgora
