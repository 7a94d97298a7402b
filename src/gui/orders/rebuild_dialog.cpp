#include "gui/orders/rebuild_dialog.h"

#include "core/orders/list_rebuild.h"
#include "gui/platform/boxes.h"
#include "gui/platform/grid_view.h"
#include "gui/platform/qt_text.h"

#include <QDialog>

namespace bramblet {

void showRebuildDialog(ListRebuild& rebuild, QWidget* parent) {
    constexpr int kLeastLines = 8;
    QDialog dialog(parent);
    dialog.setObjectName(u"RebuildDialog"_s);
    dialog.setWindowTitle(u"Rebuild Order List"_s);

    auto* summary = namedLabel("RebuildSummary");
    summary->setText(toQt(rebuild.summary()));
    summary->setWordWrap(true);
    auto* findings = new GridView("RebuildFindings", u"What has been found"_s,
                                  u"Where the list of orders and the documents disagree."_s,
                                  rebuild, kLeastLines);
    QObject::connect(findings, &GridView::headingClicked, findings, [&, findings](int column) {
        rebuild.sortBy(column);
        findings->refresh();
    });
    findings->refresh();
    auto* explanation = new QLabel(
        rebuild.changes()
            ? u"Missing orders are added at the end of the list, and orders that differ are listed "
              "as their documents say. Nothing else is changed. The present list is kept in the "
              "folder \"kept\" in the data folder."_s
            : u"The list stays as it is: nothing of this can be mended from the documents."_s);
    explanation->setWordWrap(true);
    auto* run =
        button("Rebuild", u"&Rebuild"_s, u"Put the new list in place of the present one."_s, [&] {
            rebuild.Rebuild_Click();
            dialog.accept();
        });
    run->setEnabled(rebuild.changes());
    auto* cancel =
        button("Cancel", u"Cancel"_s, u"Close this window and leave the list as it is."_s,
               [&] { dialog.reject(); });

    dialog.setLayout(
        column(10, {summary, grow(findings), explanation, row(-1, {spring(), run, cancel})}));
    dialog.resize(dialog.fontMetrics().averageCharWidth() * 100,
                  dialog.fontMetrics().lineSpacing() * 26);
    findings->showRow(0);
    findings->setFocus();
    dialog.exec();
}

}  // namespace bramblet
