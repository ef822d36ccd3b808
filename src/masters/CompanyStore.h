#pragma once

#include "masters/FieldMap.h"
#include "store/Cells.h"
#include "store/NewId.h"
#include "store/Recordset.h"

namespace ledgora {

class Connection;

/// Columns of the list of companies `vsFirm`: a row carries what the commands need without another query.
enum CompanyColumn { CompanyId, CompanyPass, CompanyStateName, CompanyName, CompanyColumnCount };

/// The 26 columns of `GST_FirmMas` behind its id, and their fields.
std::span<const MasterField> companyFields();

Cells emptyCompanyList();
/// Rebuilds the list (`id` 0) or refreshes one company in it; sorted by name.
void loadCompanyList(Connection &db, Cells &companies, int id);
/// The stored row, not yet advanced to.
Recordset companyRow(Connection &db, int id);

/// Whether another company bears the name; the database's collation decides about case. `id` 0 for a new company.
bool isCompanyNameTaken(Connection &db, const QString &name, int id);

InsertResult insertCompany(Connection &db, const MasterRow &company);
/// False when the statement failed or met no row.
bool updateCompany(Connection &db, int id, const MasterRow &company);
/// Deletes the company with all its bills and receipts, lines before headers. False when a statement failed.
bool deleteCompany(Connection &db, int id);

/// First fault of a company's fields in the order told, and the field to point at; `stateShown` is the list entry.
struct FieldFault
{
    QString message;
    QString field;
};
FieldFault companyFault(const MasterRow &company, const QString &stateShown);

} // namespace ledgora
