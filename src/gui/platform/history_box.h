// An editable box with a list of earlier entries.
#pragma once

#include <QComboBox>

#include <functional>
#include <string>
#include <vector>

class QStringListModel;

namespace bramblet {

/// The list never changes what is typed: matching entries are offered below the box and taken only
/// when chosen. Only a choice from the list sends `activated`; a closed box ignores the mouse
/// wheel.
class HistoryBox : public QComboBox {
    Q_OBJECT
  public:
    HistoryBox(const char* name, const QString& accessibleName);

    /// Called when the box gets the focus, and when its list is about to open.
    std::function<void()> onFocus = [] {};
    std::function<void()> onDropDown = [] {};

    /// Makes "Delete" in the pop-up menu, and Shift+Delete, forget an entry: the one shown, or the
    /// one highlighted in the open list or among the suggestions. Where `mayForget` says no, both
    /// do what they do in any box.
    void setForget(
        std::function<void(const QString& entry)> forget,
        std::function<bool(const QString& entry)> mayForget = [](const QString&) { return true; });

    /// Sets what the list offers. The text shown stays.
    void setEntries(const std::vector<std::string>& entries);

    /// Puts a text into the box, leaving the cursor where it was. Sends no editing signal.
    void showText(const std::string& text);

    void showPopup() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void goToShownEntry();
    bool takeSuggestion();
    bool forgetSuggestion();
    bool takesKey(const QKeyEvent& event);
    void openMenu(const QPoint& place);

    std::function<void(const QString&)> forget_;
    std::function<bool(const QString&)> mayForget_;
    QStringListModel* model_;
    std::vector<std::string> entries_;
};

}  // namespace bramblet
