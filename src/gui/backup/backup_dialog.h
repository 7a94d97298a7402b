// The windows for backing up and restoring: two folders, the files, and how far a run has got.
#pragma once

#include "core/backup/backup.h"
#include "gui/platform/boxes.h"

#include <QDialog>
#include <QElapsedTimer>

class QListView;
class QProgressBar;
class QStackedWidget;
class QStringListModel;

namespace bramblet {

class BackupDialog : public QDialog {
  public:
    BackupDialog(Backup& backup, QWidget* parent);

    /// Shows how far the backup has got.
    void showProgress();

    /// Stops a run before its next file.
    void reject() override;

  private:
    QLayout* makeFolders();
    QLayout* makeChoices();
    QLayout* makeWarning();
    QLayout* makeButtons();
    QPushButton* idleButton(const char* name, const QString& caption, const QString& tip,
                            const Command& command);
    void refresh();
    void showNames();

    Backup& backup_;
    QLabel* source_;
    QLabel* warning_;
    QPushButton* takeNewest_;
    QLineEdit* target_;
    QListView* list_;
    QStackedWidget* files_;  ///< the list, or a note during a run
    QStringListModel* names_;
    QLabel* progressText_;
    QLabel* counts_;
    QProgressBar* bar_;
    QPushButton* run_;
    QPushButton* stop_;
    std::vector<QWidget*> idleControls_;  ///< what cannot be used during a run
    QElapsedTimer lastShown_;
};

}  // namespace bramblet
