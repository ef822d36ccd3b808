#pragma once

#include "controls/Screen.h"
#include <memory>

namespace ledgora::app {

namespace Ui {
class GroupEditor;
}

/// The groups of clients of host "G" with their members. A client joins a group in the client editor.
class GroupEditor : public Screen
{
    Q_OBJECT
public:
    explicit GroupEditor(QWidget *parent = nullptr);
    ~GroupEditor() override;

private:
    void loadGroups(const QString &chosen = {});
    void showChosen();
    QString chosenCode() const;
    bool hasChosenGroup();
    void add();
    void rename();
    void deleteChosen();

    void escapePressed() override { close(); }

    std::unique_ptr<Ui::GroupEditor> ui;
};

} // namespace ledgora::app
