#include "GroupEditor.h"

#include "ClientDetails.h"
#include "host/WorkingState.h"
#include "masters/EditFields.h"
#include "platform/HostObject.h"
#include "store/ErrorLog.h"
#include "ui_GroupEditor.h"

namespace ledgora::app {

GroupEditor::GroupEditor(QWidget *parent) : Screen(parent), ui(std::make_unique<Ui::GroupEditor>())
{
    const ErrorSite site("GroupEditor", "FORM_LOAD");
    ui->setupUi(this);
    gHostObj->Resize_For_Resolution(*this);
    ui->vsGroups->setListMode();
    ui->vsGroups->setCells(emptyGroupList());
    ui->vsGroups->setWidths({0.25, 0, 0.15}, GroupName);
    ui->vsMembers->setListMode();
    ui->vsMembers->setCells(emptyMemberList());
    ui->vsMembers->setWidths({0.3, 0}, MemberName);
    on(ui->vsGroups, &Grid::rowChanged, [this](int) { showChosen(); });
    command(ui->cmdGroupAdd, [this] { add(); });
    command(ui->cmdGroupRename, [this] { rename(); });
    command(ui->cmdGroupDelete, [this] { deleteChosen(); });
    command(ui->cmdGroupBack, [this] { close(); });
    loadGroups();
    ui->vsGroups->setFocus();
}

GroupEditor::~GroupEditor() = default;

void GroupEditor::loadGroups(const QString &chosen)
{
    ui->vsGroups->change([](Cells &groups) { loadGroupList(*gCnn, groups); });
    const Cells &groups = ui->vsGroups->cells();
    const int row = groups.find(chosen, GroupCode);
    ui->vsGroups->setRow(row >= 0 ? row : groups.fixedRows());
    showChosen();
    ui->lblGroupsHint->setText(
        groups.hasData() ? QStringLiteral("A client joins a group in the client editor.")
                         : QStringLiteral("There is no group yet. Type its code and name, then press Alt+A."));
}

QString GroupEditor::chosenCode() const
{
    return ui->vsGroups->cells().text(ui->vsGroups->row(), GroupCode);
}

void GroupEditor::showChosen()
{
    const bool any = ui->vsGroups->cells().isData(ui->vsGroups->row());
    const QString code = any ? chosenCode() : QString();
    ui->txtGroupCode->setText(code);
    ui->txtGroupName->setText(any ? ui->vsGroups->cells().text(ui->vsGroups->row(), GroupName) : QString());
    ui->vsMembers->change([&](Cells &members) {
        members.clearData();
        if (any)
            loadMemberList(*gCnn, code, members);
    });
}

bool GroupEditor::hasChosenGroup()
{
    if (ui->vsGroups->cells().isData(ui->vsGroups->row()))
        return true;
    inform(QStringLiteral("Please Select a Group."), ui->vsGroups);
    return false;
}

void GroupEditor::add()
{
    const ErrorSite site("GroupEditor", "CMDGROUPADD_CLICK");
    const QString code = ui->txtGroupCode->text();
    const QString name = ui->txtGroupName->text();
    if (const QString fault = groupFault(*gCnn, code, name); !fault.isEmpty())
        return inform(fault, name.trimmed().isEmpty() && !code.isEmpty() ? ui->txtGroupName : ui->txtGroupCode);
    if (!tellsUnsaved(*this, insertGroup(*gCnn, code, name), 1))
        loadGroups(code);
}

/// The code stays: clients know their group by it.
void GroupEditor::rename()
{
    const ErrorSite site("GroupEditor", "CMDGROUPRENAME_CLICK");
    if (!hasChosenGroup())
        return;
    const QString name = ui->txtGroupName->text();
    if (name.trimmed().isEmpty())
        return inform(QStringLiteral("Please specify 'Name' !"), ui->txtGroupName);
    const QString code = chosenCode();
    if (!tellsUnsaved(*this, renameGroup(*gCnn, code, name), 1))
        loadGroups(code);
}

void GroupEditor::deleteChosen()
{
    const ErrorSite site("GroupEditor", "CMDGROUPDELETE_CLICK");
    if (!hasChosenGroup())
        return;
    const QString name = ui->vsGroups->cells().text(ui->vsGroups->row(), GroupName);
    if (ui->vsMembers->cells().hasData())
        return inform("[" + name + "] has clients. A group with clients can not be deleted.", ui->vsGroups);
    if (!ask("Do you really want to delete the group [" + name + "] ?", QMessageBox::No, QMessageBox::Critical))
        return;
    if (!deleteGroup(*gCnn, chosenCode()))
        alarm(QStringLiteral("The database did not delete this group; a client may have joined it meanwhile."));
    loadGroups();
}

} // namespace ledgora::app
