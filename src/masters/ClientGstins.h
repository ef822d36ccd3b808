#pragma once

#include "store/Cells.h"
#include <QString>
#include <initializer_list>
#include <vector>

namespace ledgora {

class Connection;

/// Columns of the grid `vsClGSTIN`: the host's clients with their GSTIN as loaded (hidden) and as it stands now.
enum ClientGstinColumn {
    ClientGstinCode,
    ClientGstinName,
    ClientGstinState,
    ClientGstinPan,
    ClientGstinLoaded,
    ClientGstin,
    ClientGstinColumnCount
};

Cells emptyClientGstins();

/// Writes the registered GSTINs into the columns `into` of a list of clients; a client that left the host is skipped.
void fillRegisteredGstins(Connection &db, Cells &clients, int codeColumn, std::initializer_list<int> into);

/// Fills the grid with the clients of the host's tables and their registered GSTINs, by name. Other clients are not
/// among them: their GSTIN is part of their master. A table that can not be read is logged and left out.
void LOADGRIDUPDCLGSTIN(Connection &db, const QString &hostCode, Cells &clients);

/// Rows whose GSTIN is no longer the one loaded.
std::vector<int> changedGstins(const Cells &clients);

/// What a GSTIN makes the user think of, in the order in which it is to be told.
struct GstinFinding
{
    QString text; ///< the message, or the question when `isQuestion`: Yes goes on, No stops
    bool isQuestion = false;
    QString messageAfterNo; ///< told when the question was answered No; "" for nothing more
};

/// Findings about the GSTIN of a client in the host's tables against the client's state (its name, old spellings
/// included) and PAN; none for an empty or a fitting one. A deductor of tax registers with its TAN in place of the
/// PAN, which is asked about; characters that have neither shape pass.
std::vector<GstinFinding> gstinFindings(const QString &gstin, const QString &state, const QString &pan);

/// The statement that brings the register `GST_ClRegNo` from one GSTIN of a client to another; "" when they are equal.
QString gstinStatement(const QString &code, const QString &loaded, const QString &gstin);

/// Writes the changed rows, each with its own statement; what went in counts as loaded from then on. False when a
/// statement failed or met no row, because another user took it away: such a row is still a changed one, and comes
/// in as a new one with the next save.
bool saveClientGstins(Connection &db, Cells &clients);

} // namespace ledgora
