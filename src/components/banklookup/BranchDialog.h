#pragma once

#include <QDialog>
#include <vector>

class QLabel;
class QLineEdit;

namespace ledgora {
class Grid;
}

namespace ledgora::banklookup {

struct Branch;
struct BranchList;

/// The choice of a branch: a line to type words in, and under it the branches that have them all. The keys that move in
/// a list move it from the line too; Enter takes the branch, Esc backs out.
class BranchDialog : public QDialog
{
    Q_OBJECT
public:
    /// The list must outlive the dialog.
    BranchDialog(const BranchList &list, const QString &words, QWidget *parent = nullptr);

    /// The branch in the list that is marked, or none.
    const Branch *chosen() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search(const QString &words);
    void take();

    const BranchList &m_list;
    std::vector<const Branch *> m_hits;
    QLineEdit *m_words;
    Grid *m_branches;
    QLabel *m_count;
};

} // namespace ledgora::banklookup
