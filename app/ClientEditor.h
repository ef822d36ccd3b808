#pragma once

#include "ClientDetails.h"
#include "ClientStore.h"
#include "controls/Screen.h"
#include <memory>

class QKeyEvent;

namespace ledgora::app {

namespace Ui {
class ClientEditor;
}

/// The clients of the host that the program plays: a list to search by typing, and in its place the frame in which one
/// is added or modified, with the fields of its kind. Bills know a client by its code, so that the code is given once
/// and a client with documents stays.
class ClientEditor : public Screen
{
    Q_OBJECT
public:
    explicit ClientEditor(QWidget *parent = nullptr);
    ~ClientEditor() override;

private:
    // The list.
    void connectList();
    void loadList(const ClientRef &chosen = {});
    void findClient(const QString &typed);
    bool moveInList(const QKeyEvent *key);
    bool hasChosenClient();
    void showList(QWidget *focus);
    void addClient();
    void modifyClient();
    void deleteChosen();

    // The edit frame.
    void connectEdit();
    void showEdit(ClientKind kind, const MasterRow &row);
    void showKind(ClientKind kind);
    ClientKind shownKind() const;
    bool completeChangeDate();
    void save();
    bool isStored(const MasterRow &row);
    bool notesChange(const MasterRow &row);
    void cancel() { leaveEdit(m_addMode); }
    void leaveEdit(bool added);

    // What host "G" keeps of a client beside its own row.
    void connectDetails();
    void showDetails(const ClientDetails &details);
    void showLetters();
    ClientDetails readDetails() const;
    bool storesDetails();

    void escapePressed() override;

    std::unique_ptr<Ui::ClientEditor> ui;
    bool m_addMode = false;
    ClientRef m_client;                    ///< the one being modified
    MasterRow m_former;                    ///< as it was when the frame opened
    QDate m_latestChange;                  ///< of its name or address
    ClientDetails m_details;               ///< as stored
    QMap<QString, bool> m_lettersToOffice; ///< as shown
};

} // namespace ledgora::app
