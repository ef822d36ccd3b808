#pragma once

#include "platform/BankLookup.h"

namespace ledgora::banklookup {

/// The stock bank look-up: the file `ifsc.csv` in the folder of the host's data. A single branch that has all the words
/// is taken at once, else the user chooses from a list. Without the file there is nothing to look in; a file that can
/// not be used is logged as well.
class StockBankLookup final : public BankLookup
{
public:
    void InitMe(const QString &appPath, Connection *&connection, const QString &logName, float ratX, float ratY,
                float ratFS) override;
    void GetMICRIFSC(BankChoice &choice, const QString &bank, const QString &city, const QString &branch) override;

private:
    QString m_folder;
    float m_ratX = 1;
    float m_ratY = 1;
    float m_ratFS = 1;
};

} // namespace ledgora::banklookup
