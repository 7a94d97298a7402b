// What the guided tour types in: the vendors, destinations, contacts and orders of a small joinery.
#pragma once

#include <vector>

namespace bramblet::tour {

struct SampleAddress {
    const char* name;
    const char* address;
};

struct SampleLine {
    const char* quantity;
    const char* unit;
    const char* description;
    const char* unitCost;
};

struct SampleItem {
    const char* category;
    const char* vendor;
    const char* unit;
    const char* description;
    const char* unitCost;
};

/// Someone in the contact manager.
struct SampleContact {
    const char* organization;
    const char* phone;
    const char* fax;
    const char* line1;
    const char* line2;
    const char* town;
    const char* region;
    const char* postalCode;
};

struct SampleOrder {
    bool requisition;
    bool received;
    const char* vendor;
    const char* shipTo;
    const char* orderDate;
    const char* onSite;
    const char* job;
    const char* by;
    const char* via;
    const char* fob;
    const char* terms;
    const char* comments;
    const char* discountFactor;
    const char* taxFactor;
    const char* shipping;
    std::vector<SampleLine> lines;
};

extern const std::vector<SampleAddress> kVendors;
extern const std::vector<SampleAddress> kDestinations;
extern const std::vector<SampleItem> kItems;
extern const std::vector<SampleItem> kPriceList;
extern const std::vector<SampleContact> kContacts;
extern const std::vector<SampleOrder> kOrders;

}  // namespace bramblet::tour
