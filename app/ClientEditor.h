#pragma once

#include "ClientStore.h"
#include "controls/Screen.h"
#include <memory>

class QKeyEvent;

namespace ledgora::app {

namespace Ui {
class ClientEditor;
}

/// The clients of the reference host: a list of companies and limited-liability partnerships to search by typing, and
/// in its place the frame in which one is added or modified. Bills know a client by its code, so that the code is
/// given once and a client with documents stays.
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
    void cancel();

    void escapePressed() override;

    std::unique_ptr<Ui::ClientEditor> ui;
    bool m_addMode = false;
    ClientRef m_client;   ///< the one being modified
    MasterRow m_former;   ///< as it was when the frame opened
    QDate m_latestChange; ///< of its name or address
};

} // namespace ledgora::app
