#include "gui/stock/last_paid_line.h"

#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace bramblet {
namespace {

constexpr int kLeastPause = 5;    // milliseconds, between two documents
constexpr int kTimesAsLong = 50;  // the pause after one: a slow server is asked the less often
constexpr int kLongestPause = 10 * 60'000;
constexpr int kUntilIdle = 500;
constexpr qint64 kNanoseconds = 1'000'000;  // in a millisecond

bool isIdle() {
    const QWidget* const window = QApplication::activeWindow();
    return window != nullptr && window->findChild<LastPaidLine*>() != nullptr &&
           QApplication::activePopupWidget() == nullptr &&
           QApplication::mouseButtons() == Qt::NoButton;
}

bool areSame(const std::vector<PaidPrice>& a, const std::vector<PaidPrice>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const PaidPrice& one, const PaidPrice& other) {
                          return one.words == other.words && one.order == other.order;
                      });
}

QString inFull(const PaidPrice& price) {
    return u"%1, order %2"_s.arg(toQt(price.words), toQt(price.order));
}

/// A low button that keeps its room when it is hidden, so that nothing moves.
QToolButton* smallButton(const QString& name, const QString& tip) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::TabFocus);
    button->setFixedHeight(button->fontMetrics().height() + 2);
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    return button;
}

}  // namespace

PaidReader::PaidReader(LastPaid& paid) : paid_(paid) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &PaidReader::readNext);
}

void PaidReader::want() {
    wanted_ = true;
    goOn();
}

void PaidReader::goOn() {
    if (wanted_ && !timer_.isActive() && paid_.hasMore()) timer_.start(kLeastPause);
}

void PaidReader::readNext() {
    if (!isIdle()) return timer_.start(kUntilIdle);
    QElapsedTimer took;
    took.start();
    const bool learned = paid_.readNext();
    const qint64 pause = kLeastPause + kTimesAsLong * took.nsecsElapsed() / kNanoseconds;
    if (paid_.hasMore()) timer_.start(static_cast<int>(qMin<qint64>(pause, kLongestPause)));
    if (learned) emit this->learned();
}

LastPaidLine::LastPaidLine(const QString& name, const QString& caption, PaidReader& reader,
                           Wanted wanted, Take take)
    : reader_(reader), wanted_(std::move(wanted)), take_(std::move(take)) {
    setObjectName(name + u"Line"_s);
    label_ = new QLabel;
    label_->setObjectName(name);
    label_->setForegroundRole(QPalette::PlaceholderText);
    label_->setMinimumWidth(1);
    use_ = smallButton(name + u"Use"_s, u"Take this price over as the unit cost."_s);
    use_->setText(caption);
    connect(use_, &QToolButton::clicked, this, [this] { take_(prices_.front()); });
    older_ = smallButton(name + u"Older"_s, u"What was paid before that"_s);
    older_->setAccessibleName(older_->toolTip());
    older_->setArrowType(Qt::DownArrow);
    older_->setPopupMode(QToolButton::InstantPopup);
    menu_ = new QMenu(this);
    menu_->setObjectName(name + u"Menu"_s);
    older_->setMenu(menu_);
    connect(&reader_, &PaidReader::learned, this, &LastPaidLine::refresh);
    fill(this, row(4, {grow(label_), use_, older_}));
    show({});
}

void LastPaidLine::refresh() {
    const Goods goods = wanted_();
    if (goods.description.empty()) return show({});
    reader_.want();
    std::vector<PaidPrice> prices = reader_.paid().of(goods);
    if (!areSame(prices, prices_)) show(prices);
}

void LastPaidLine::show(const std::vector<PaidPrice>& prices) {
    prices_ = prices;
    use_->setVisible(!prices_.empty());
    older_->setVisible(prices_.size() > 1);
    QStringList all;
    menu_->clear();
    for (std::size_t i = 0; i < prices_.size(); ++i) {
        all.append(inFull(prices_[i]));
        // A copy: while its menu is open, the prices may change.
        if (i > 0) menu_->addAction(all.last(), this, [this, price = prices_[i]] { take_(price); });
    }
    line_ = all.isEmpty() ? QString() : u"Last paid %1"_s.arg(toQt(prices_.front().words));
    label_->setAccessibleName(line_);
    label_->setToolTip(all.isEmpty() ? QString() : u"Last paid\n"_s + all.join(u'\n'));
    elide();
}

void LastPaidLine::elide() {
    label_->setText(fontMetrics().elidedText(line_, Qt::ElideRight, label_->width()));
}

void LastPaidLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layout()->activate();
    elide();
}

}  // namespace bramblet
