// What the commands on the order shown work with.
#pragma once

#include "core/addresses/address_book.h"
#include "core/document/open_order.h"
#include "core/history/field_histories.h"
#include "core/orders/last_paid.h"
#include "core/orders/order_documents.h"
#include "core/orders/order_index.h"
#include "core/orders/saved_orders.h"
#include "core/platform/clock.h"
#include "core/settings/commands.h"
#include "core/settings/settings.h"
#include "core/settings/undo.h"
#include "core/stock/stock_list.h"

namespace bramblet {

/// All of it outlives who works with it.
struct OrderWorkplace {
    const FileSystem& files_;
    Commands& commands_;
    Undo& undo_;
    Settings& settings_;
    bool taxFreight_;
    const RegionalFormats& formats_;
    const Clock& clock_;
    OpenOrder& open_;
    AddressBook& addresses_;
    FieldHistories& histories_;
    const OrderIndex& index_;
    SavedOrders& savedOrders_;
    StockList& stock_;
    OrderDocuments& documents_;
    LastPaid& lastPaid_;
};

}  // namespace bramblet
