#pragma once

#include "bills/DocumentList.h"
#include "bills/DocumentStore.h"
#include "controls/CompanyScreen.h"
#include "store/Cells.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace ledgora {

class ChoiceBox;
class CommandButton;
class DateField;
class Grid;
class LineField;

/// The fields that every entry screen has, made by its .ui file.
struct DocumentFields
{
    ChoiceBox *year, *series;
    LineField *number;
    DateField *date;
    LineField *partyName, *partyPan, *partyGstin, *partyAddress;
    QLineEdit *narration;
    QWidget *editPanel;
    QCheckBox *clientWise;
    QLabel *keysHint, *status;
    CommandButton *next, *previous, *showList, *add, *modify, *remove, *update, *cancel, *back;
    CommandButton *preview = nullptr; ///< nothing on a screen without one
};

/// The base of the entry screens for bills and receipts: year and series lists, type-ahead on the party directory,
/// the list of the year's documents as cursor, the two modes, Next and Previous, the list of earlier narrations, Esc.
/// A derived screen gives its tables and its own panel.
class DocumentScreen : public CompanyScreen
{
    Q_OBJECT
public:
    explicit DocumentScreen(QWidget *parent = nullptr);

protected:
    /// What a kind of document calls its things.
    struct Kind
    {
        QString noun;       ///< "Bill"
        QString seriesKind; ///< `BR` of its series: "B"
        DocumentListKind list;
        int seriesColumn = 2;
        int narrationColumn;
        QString listName;      ///< object name of the list grid
        const char *f12Effect; ///< what F12 does, for the window of keys
        Cells emptyList;
    };

    /// Called once, when the .ui file stands: builds the lists and connects the common handlers.
    void setUpDocument(const DocumentFields &fields, Kind kind);
    /// Fills directory and years, selects the year that today lies in and shows its documents.
    void openYears();

    // What differs by kind.
    virtual void loadList(int id) = 0;       ///< rebuilds the list (0), or refreshes one document; selects a row
    virtual void clearPanel() = 0;           ///< the fields that are not common
    virtual void showPanel(int listRow) = 0; ///< the same, from a row of the list
    virtual void yearChanged(int) {}         ///< what else depends on the year
    virtual void beginAdd() = 0;             ///< the rest of Add, focus included
    virtual void beginModify() = 0;          ///< the rest of Modify
    virtual int highestNumber() = 0;         ///< of company and year, over all series
    virtual bool removeStored(int id) = 0;   ///< deletes the document and tells a failure; False when it was refused
    virtual void partyLeft() {}              ///< the party field was left
    virtual void dateLeft() {}               ///< the date field was left, with a date of the year or empty
    virtual QStringList narrationsUsed() = 0;
    virtual void updatePressed() = 0;
    virtual void previewPressed() {}
    /// The document as the tables have it now; nothing when it could not be read.
    virtual std::optional<StoredDocument> asStored(int id) = 0;
    virtual void placeList() = 0;                  ///< where the list lies
    virtual bool closeOwnPopup() { return false; } ///< Esc: True when a pop-up of the kind's own was closed

    void SETBUTTONS(bool browse);
    void CBOFYR_CLICK();
    void CMDADD_CLICK();
    void CMDMODIFY_CLICK();
    void CMDDELETE_CLICK();
    void CMDSHLIST_CLICK();
    void CMDNEXT_CLICK() { moveTo(1); }
    void CMDPREV_CLICK() { moveTo(-1); }
    void CMDCANCEL_CLICK();
    void GETLISTN();
    int GETSRINDEX(int seriesId) const;
    /// Shows the current document (`LOADDATAB`, `LOADDATAR`).
    void showCurrent();

    /// The checks of number and date at their fields: the message shown and False, or True.
    bool checkNumber();
    bool checkDate();

    /// Keys that type anything but a digit are refused in the field, with a message.
    void digitsOnly(QLineEdit *line);

    // Saving, and what other users did meanwhile (DocumentSaving.cpp).
    bool agreesToOutOfOrder(const std::optional<Neighbour> &found, bool lower);
    void keepEntry(const SaveResult &saved);
    bool wasChangedByOthers(); ///< the document in edit, since it was last looked at
    static QString replacedNote(bool overwritten);
    void noteStored();   ///< remembers what is shown, and says when the list is out of date
    void noteModified(); ///< begins the edit of the current one, and says when it changed since it was shown
    int editedId() const { return m_editedId; } ///< 0 for a new one

    int year() const;      ///< starting year of the chosen financial year
    int seriesId() const;  ///< 0 for "(None)"
    int currentId() const; ///< id of the selected row of the list, 0 for none
    bool hasCurrent() const;
    bool isEditing() const;
    bool isAdding() const { return m_isAdding; }
    QString partyCode() const;
    QString partyStateCode() const;
    void clearParty();

    Grid *documentList() const { return m_list; }
    Grid *partyList() const { return m_parties; }
    const DocumentFields &fields() const { return m_fields; }
    void selectAfterRefresh(int id, int rememberedRow);
    void say(const QString &status) const;

    /// Puts a pop-up under a field, or above it where there is more room, inside the screen, without covering the
    /// field.
    void placePopup(QWidget *popup, QWidget *under, QSize size);
    /// Up, Down, Page Up and Page Down move the row of a list while a field has the keys; hidden rows are passed over.
    static bool moveInList(Grid &list, const QKeyEvent &key);
    /// Fills a one-column pop-up once an edit, selects the row that equals `text` and shows it at `under`; the chosen
    /// row goes to `take`. Nothing happens for an empty list.
    void showTexts(QListWidget *popup, const QStringList &texts, const QString &text, QWidget *under, const QRect &at);
    QListWidget *makeTextPopup(const QString &name, const QString &heading,
                               const std::function<void(const QString &)> &take);

    bool hasOpenEntry() const override { return isEditing(); }
    void bringUpToDate() override;
    void escapePressed() override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void connectCommands();
    void connectFields();
    void connectParty();
    void fillParties();
    void fillSeries();
    void moveTo(int delta);
    void hideDocumentList();
    void leaveDocumentList();
    void findParty(const QString &typed);
    bool partyKey(QKeyEvent *key);
    void partyFocused();
    void partyFieldLeft();
    void takeParty(int row);
    void sortClientWise();

    DocumentFields m_fields{};
    Kind m_kind;
    Grid *m_list = nullptr;
    Grid *m_parties = nullptr;
    QListWidget *m_narrations = nullptr;
    bool m_isAdding = false;
    int m_editedId = 0;
    std::optional<StoredDocument> m_seen; ///< the document shown, as it was read; other users may change it meanwhile
};

} // namespace ledgora
