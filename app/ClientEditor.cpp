#include "ClientEditor.h"

#include "controls/StateChoice.h"
#include "masters/EditFields.h"
#include "platform/HostObject.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/ErrorLog.h"
#include "ui_ClientEditor.h"
#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>

namespace ledgora::app {

namespace {

constexpr auto dayPattern = u"dd/MM/yyyy";

QString counted(int count, const QString &noun)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? noun : QString(noun + u's'));
}

} // namespace

ClientEditor::ClientEditor(QWidget *parent) : Screen(parent), ui(std::make_unique<Ui::ClientEditor>())
{
    const ErrorSite site("ClientEditor", "FORM_LOAD");
    ui->setupUi(this);
    gHostObj->Resize_For_Resolution(*this);
    LOADSTATELISTGST(*ui->cboClientState);
    for (const ClientKind kind : clientKinds(gHostCode))
        ui->cboClientKind->addItem(QLatin1String(clientTable(kind).caption), int(kind));
    connectList();
    connectEdit();
    connectDetails();
    loadList();
    ui->txtClientSearch->setFocus();
}

ClientEditor::~ClientEditor() = default;

void ClientEditor::connectList()
{
    ui->vsClients->setListMode();
    ui->vsClients->setCells(emptyClientList());
    ui->vsClients->setColumnHidden(ClientId, true);
    ui->vsClients->setWidths({0.14, 0, 0.1, 0.13, 0.14, 0.17}, ClientName);
    field(ui->txtClientSearch).keyDown = [this](const QKeyEvent *key) { return moveInList(key); };
    on(ui->txtClientSearch, &QLineEdit::textEdited, [this](const QString &typed) { findClient(typed); });
    on(ui->vsClients, &Grid::rowActivated, [this](int) { modifyClient(); });
    command(ui->cmdClientAdd, [this] { addClient(); });
    command(ui->cmdClientModify, [this] { modifyClient(); });
    command(ui->cmdClientDelete, [this] { deleteChosen(); });
    command(ui->cmdClientBack, [this] { close(); });
    tellKeys({
        {ui->famClientMain, "Up, Down", "Move in the list while a name is searched"},
        {ui->famClientMain, "Enter", "Modifies the client under the cursor"},
        {ui->famClientMain, "Esc", "Closes the screen"},
        {ui->famClientEdit, "Enter", "Goes to the next field"},
        {ui->famClientEdit, "Esc", "Cancels the entry"},
    });
}

void ClientEditor::loadList(const ClientRef &chosen)
{
    ui->vsClients->change([](Cells &clients) { loadClientList(*gCnn, gHostCode, clients); });
    const Cells &clients = ui->vsClients->cells();
    const int row = chosen.code.isEmpty() ? -1 : rowOfClient(clients, chosen);
    ui->vsClients->setRow(row >= 0 ? row : clients.fixedRows());
    ui->lblClientsHint->setText(clients.hasData()
                                    ? counted(clients.rows() - clients.fixedRows(), QStringLiteral("client"))
                                    : QStringLiteral("There is no client yet. Press Alt+A to add the first one."));
}

/// By the beginning of the name, else of the code; what is in neither leaves the mark where it was.
void ClientEditor::findClient(const QString &typed)
{
    const Cells &clients = ui->vsClients->cells();
    for (const int column : {ClientName, ClientCode}) {
        const int row =
            typed.isEmpty() ? -1 : clients.find(typed, column, clients.fixedRows(), Cells::Match::BeginsAnyCase);
        if (row >= 0)
            return ui->vsClients->setRow(row);
    }
}

bool ClientEditor::moveInList(const QKeyEvent *key)
{
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        modifyClient();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
        QKeyEvent same(key->type(), key->key(), key->modifiers());
        QCoreApplication::sendEvent(ui->vsClients, &same);
        return true;
    }
    default:
        return false;
    }
}

bool ClientEditor::hasChosenClient()
{
    if (ui->vsClients->cells().isData(ui->vsClients->row()))
        return true;
    inform(QStringLiteral("Please Select a Client."), ui->txtClientSearch);
    return false;
}

void ClientEditor::showList(QWidget *focus)
{
    ui->frames->setCurrentWidget(ui->pageClientMain);
    focus->setFocus();
}

void ClientEditor::addClient()
{
    m_addMode = true;
    m_client = {};
    m_latestChange = {};
    showDetails({});
    showEdit(clientKinds(gHostCode).front(), {});
    if (ui->cboClientKind->isEnabled())
        ui->cboClientKind->setFocus();
    else
        ui->txtClientCode->setFocus();
}

void ClientEditor::modifyClient()
{
    const ErrorSite site("ClientEditor", "CMDCLIENTMODIFY_CLICK");
    if (!hasChosenClient())
        return;
    m_addMode = false;
    m_client = clientAt(ui->vsClients->cells(), ui->vsClients->row());
    const std::optional<MasterRow> stored = storedClient(*gCnn, m_client);
    std::optional<ClientDetails> details = ClientDetails();
    if (gHostCode == QLatin1String("G"))
        details = storedDetails(*gCnn, m_client.code);
    if (!stored || !details) {
        inform(QStringLiteral("This client could not be read; another user may have deleted it."), ui->txtClientSearch);
        return loadList();
    }
    m_latestChange = lastChange(*gCnn, m_client);
    showDetails(*details);
    showEdit(m_client.kind, *stored);
    QLineEdit *const name = m_client.kind == ClientKind::Individual ? ui->txtClientFirst : ui->txtClientName;
    name->setFocus();
}

void ClientEditor::deleteChosen()
{
    const ErrorSite site("ClientEditor", "CMDCLIENTDELETE_CLICK");
    if (!hasChosenClient())
        return;
    const int row = ui->vsClients->row();
    const ClientRef client = clientAt(ui->vsClients->cells(), row);
    const QString name = ui->vsClients->cells().text(row, ClientName);
    const std::optional<ClientUse> use = clientUse(*gCnn, client);
    if (!use)
        return alarm(QStringLiteral("The database could not be asked for the bills and receipts of this client, so it "
                                    "is not deleted."));
    if (use->bills > 0 || use->receipts > 0)
        return inform(QStringLiteral("[%1] has %2 and %3. A client with bills or receipts can not be deleted.")
                          .arg(name, counted(use->bills, QStringLiteral("bill")),
                               counted(use->receipts, QStringLiteral("receipt"))),
                      ui->vsClients);
    if (!ask("Do you really want to delete the client [" + name + "] ?", QMessageBox::No, QMessageBox::Critical))
        return;
    if (!deleteClient(*gCnn, client))
        alarm(QStringLiteral("The database did not delete everything of this client. Please try again."));
    loadList();
    ui->txtClientSearch->setFocus();
}

void ClientEditor::connectEdit()
{
    enterMovesOn({ui->cboClientKind, ui->cboClientState, ui->txtClientEmail, ui->txtClientChangedFrom});
    on(ui->cboClientKind, &ChoiceBox::chosen, [this](int) { showKind(shownKind()); });
    field(ui->txtClientPAN).validate = [this] { return panFieldIsValid(*this, *ui->txtClientPAN); };
    field(ui->txtClientChangedFrom).validate = [this] { return completeChangeDate(); };
    command(ui->cmdClientSave, [this] { save(); });
    command(ui->cmdClientCancel, [this] { cancel(); });
}

void ClientEditor::showEdit(ClientKind kind, const MasterRow &row)
{
    m_former = row;
    for (const ClientKind any : clientKinds(gHostCode))
        writeEditFields(*this, clientTable(any).fields, {});
    writeEditFields(*this, clientTable(kind).fields, row);
    QString title = m_addMode ? QStringLiteral("New Client") : QString("Client " + m_client.code);
    ui->famClientEdit->setTitle(title.replace(u'&', QStringLiteral("&&")));
    ui->cboClientKind->setCurrentIndex(ui->cboClientKind->findData(int(kind)));
    ui->cboClientKind->setEnabled(m_addMode && ui->cboClientKind->count() > 1);
    ui->txtClientCode->setEnabled(m_addMode);
    ui->txtClientChangedFrom->setDate({});
    ui->frames->setCurrentWidget(ui->pageClientEdit);
    showKind(kind);
}

/// The fields that the kind has. Only a company has a history, and only what is stored can have changed.
void ClientEditor::showKind(ClientKind kind)
{
    const ClientTable &table = clientTable(kind);
    const std::pair<QWidget *, QWidget *> mayLack[] = {{nullptr, ui->txtClientName},
                                                       {nullptr, ui->txtClientFirst},
                                                       {nullptr, ui->txtClientMiddle},
                                                       {nullptr, ui->txtClientLast},
                                                       {ui->lblClientStreet, ui->txtClientStreet},
                                                       {ui->lblClientArea, ui->txtClientArea}};
    for (const auto &[label, field] : mayLack) {
        const QString name = field->objectName();
        const bool has = std::ranges::any_of(
            table.fields, [&name](const MasterField &each) { return name == QLatin1String(each.field); });
        field->setVisible(has);
        if (label)
            label->setVisible(has);
    }
    ui->lblClientFlat->setText(QLatin1String(table.firstLine));
    ui->lblClientBuilding->setText(QLatin1String(table.secondLine));
    ui->famOffice->setVisible(kind == ClientKind::Individual);
    const bool mayChange = kind == ClientKind::Company && !m_addMode;
    ui->lblClientChangedFrom->setVisible(mayChange);
    ui->txtClientChangedFrom->setVisible(mayChange);
    ui->lblClientEditHint->setVisible(mayChange);
    ui->lblClientEditHint->setText(
        QStringLiteral("With a day in \"Changed from\" documents of earlier years keep the former name and address; "
                       "without one the entry is corrected.")
        + (m_latestChange.isValid()
               ? QString(" The latest change holds from " + m_latestChange.toString(QStringView(dayPattern)) + u'.')
               : QString()));
}

ClientKind ClientEditor::shownKind() const
{
    return ClientKind(ui->cboClientKind->currentData().toInt());
}

bool ClientEditor::completeChangeDate()
{
    const QString typed = ui->txtClientChangedFrom->date();
    const QString fault = changeDateFault(typed, m_latestChange, today());
    if (!fault.isEmpty()) {
        inform(fault, ui->txtClientChangedFrom);
        return false;
    }
    ui->txtClientChangedFrom->setDate(CONVERTDATE(typed));
    return true;
}

void ClientEditor::save()
{
    const ErrorSite site("ClientEditor", "CMDCLIENTSAVE_CLICK");
    const ClientTable &table = clientTable(shownKind());
    const MasterRow row = readEditFields(*this, table.fields);
    const bool adding = m_addMode;
    if (adding) {
        const QString code = row.value(QLatin1String(table.code));
        if (const QString fault = clientCodeFault(*gCnn, gHostCode, code); !fault.isEmpty())
            return inform(fault, ui->txtClientCode);
    }
    if (const ClientFault fault = clientFault(table.kind, row); !fault.message.isEmpty())
        return inform(fault.message, findChild<QWidget *>(fault.field));
    if (!panFieldIsValid(*this, *ui->txtClientPAN) || !completeChangeDate())
        return;
    if (!isStored(row) || !notesChange(row) || !storesDetails())
        return;
    loadList(m_client);
    leaveEdit(adding);
}

/// Writes the client; once it is in, a new one has become the client being modified.
bool ClientEditor::isStored(const MasterRow &row)
{
    InsertResult result{1, false};
    if (m_addMode)
        result = insertClient(*gCnn, shownKind(), row);
    else
        result.inserted = updateClient(*gCnn, m_client, row);
    if (tellsUnsaved(*this, result.inserted, result.id))
        return false;
    if (m_addMode) {
        m_client = {shownKind(), result.id, row.value(QLatin1String(clientTable(shownKind()).code))};
        m_addMode = false;
        m_former = row;
        ui->cboClientKind->setEnabled(false);
        ui->txtClientCode->setEnabled(false);
    }
    return true;
}

bool ClientEditor::notesChange(const MasterRow &row)
{
    if (m_client.kind != ClientKind::Company)
        return true;
    if (noteClientChange(*gCnn, m_client.id, m_former, row, DateFromText(ui->txtClientChangedFrom->date())))
        return true;
    alarm(QStringLiteral("The client is saved, but the database did not take the change into its history of names and "
                         "addresses. Press Save to try again."));
    return false;
}

void ClientEditor::leaveEdit(bool added)
{
    showList(added ? static_cast<QWidget *>(ui->cmdClientAdd) : ui->txtClientSearch);
}

void ClientEditor::escapePressed()
{
    if (ui->pageClientEdit->isVisible())
        cancel();
    else
        close();
}

} // namespace ledgora::app
