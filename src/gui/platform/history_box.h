// An editable box with a list of earlier entries.
#pragma once

#include <QComboBox>

#include <functional>
#include <string>
#include <vector>

class QStringListModel;

namespace bramblet {

/// Its actions are part of its pop-up menu. The list never changes what is typed: matching entries
/// are offered below the box and taken only when chosen. Only a choice from the list sends
/// `activated`; a closed box ignores the mouse wheel.
class HistoryBox : public QComboBox {
    Q_OBJECT
  public:
    HistoryBox(const char* name, const QString& accessibleName, const QString& tip);

    /// Makes "Delete" in the pop-up menu, and Shift+Delete, forget an entry: the one shown, or the
    /// one highlighted in the open list or among the suggestions. Where `mayForget` says no, both
    /// do what they do in any box.
    using MayForget = bool(const QString& entry);
    void offerToForget(std::function<MayForget> mayForget = [](const QString&) { return true; });

    /// Suggests entries that hold what is typed anywhere, not only those that begin with it.
    void suggestFromInside();

    /// Sets what the list offers. The text shown stays.
    void setEntries(const std::vector<std::string>& entries);

    void showPopup() override;

  signals:
    void focused();
    /// The list is about to open.
    void opening();
    void forget(const QString& entry);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void makeLists();
    void keepingText(const std::function<void()>& change);
    void goToShownEntry();
    bool takeSuggestion();
    bool forgetSuggestion();
    bool takesKey(const QKeyEvent& event);
    void openMenu(const QPoint& place);

    std::function<MayForget> mayForget_;
    QStringListModel* model_;
    std::vector<std::string> entries_;
    bool listsMade_ = false;
};

}  // namespace bramblet
