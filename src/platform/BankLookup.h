#pragma once

#include <QString>
#include <array>

namespace ledgora {

class Connection;

/// What a bank look-up answers; see `BankLookup::GetMICRIFSC`.
using BankChoice = std::array<QString, 4>;
enum BankChoiceField { ChosenBank, ChosenBranch, ChosenIfsCode, ChosenMicrCode };

/// Looks up a bank's branch and its IFS code, behind the ProgID "OrvaneMiscInf.ClsMain". Made anew for each look-up.
/// No operation throws; a failure is logged.
class BankLookup
{
public:
    static constexpr auto progId = "OrvaneMiscInf.ClsMain";
    /// The mark that `ChosenBank` bears before the call, and still bears when there was nothing to look in.
    static constexpr QChar noData = u'?';

    BankLookup() = default;
    BankLookup(const BankLookup &) = delete;
    BankLookup &operator=(const BankLookup &) = delete;
    virtual ~BankLookup() = default;

    /// Folder of the host's data, its connection (the component may put another in its place), bare file name of the
    /// error log, screen ratios of the host.
    virtual void InitMe(const QString &appPath, Connection *&connection, const QString &logName, float ratX, float ratY,
                        float ratFS) = 0;

    /// Lets the user choose a branch, beginning with what is known of it. Afterwards `ChosenBank` of the choice is
    /// still `noData` (no data to look in), "" (the user backed out), or the name of the bank, and then the other
    /// fields hold its branch, IFS code and, where known, MICR code.
    virtual void GetMICRIFSC(BankChoice &choice, const QString &bank, const QString &city, const QString &branch) = 0;
};

} // namespace ledgora
