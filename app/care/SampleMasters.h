#pragma once

#include "SamplePlan.h"
#include <QString>

namespace ledgora::app {

/// A billing company of the sample. `id` from 1.
struct SampleCompany
{
    QString state;
    QString row; ///< its values in `GST_FirmMas`, in brackets
};
SampleCompany sampleCompany(const SamplePlan &plan, int id);

/// A client of the sample: of the host's tables or an other client.
struct SampleParty
{
    QString table;    ///< the one it stands in
    QString code;     ///< as bills know it
    QString state;    ///< name
    QString row;      ///< its values in the table, in brackets
    QString gstinRow; ///< its values in `GST_ClRegNo`; "" for an other client, or without a GSTIN
};
/// `index` from 0. Of twenty clients nine are companies, three partnerships, eight other clients, of whom host "G"
/// counts the persons among its own. Clients belong to the companies in turn; two of three live where their company has
/// its office.
SampleParty sampleParty(const SamplePlan &plan, int index);

/// Series of each year: three of bills and one of receipts. `place` 0 .. 3 within the year.
inline constexpr int sampleSeriesAYear = 4;
int sampleSeriesId(const SamplePlan &plan, int year, int place);
QString sampleSeriesRow(const SamplePlan &plan, int year, int place);

} // namespace ledgora::app
