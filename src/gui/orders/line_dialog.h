// The dialog "Edit Line Item".
#pragma once

#include "core/orders/line_items.h"

#include <QDialog>

#include <optional>
#include <string>
#include <vector>

class QLineEdit;
class QPlainTextEdit;

namespace bramblet {

class HistoryBox;

class EditLineDialog : public QDialog {
    Q_OBJECT
  public:
    /// `units` fills the list of units.
    EditLineDialog(const LineEntry& entry, const std::string& caption,
                   const std::vector<std::string>& units, const RegionalFormats& formats,
                   Commands& commands, QWidget* parent);

    /// What Save stored; empty until then.
    const std::optional<LineEntry>& stored() const { return stored_; }

  private:
    LineEntry boxes() const;
    void save();
    void remove();
    bool eventFilter(QObject* watched, QEvent* event) override;

    const RegionalFormats& formats_;
    Commands& commands_;
    QPlainTextEdit* description_;
    QLineEdit* quantity_;
    QLineEdit* unitCost_;
    HistoryBox* unit_;
    std::optional<LineEntry> stored_;
};

}  // namespace bramblet
