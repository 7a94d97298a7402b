// The stations of the tour, in the order in which they are visited.
#pragma once

#include "tour/guide.h"

namespace bramblet::tour {

/// Types a character that no order can hold, and takes it back.
void typeWhatWillNotPrint(Guide& guide);
/// Chooses the letterhead, which lies in `artwork`, and enters the company's name and address.
void setUpCompany(Guide& guide);
void typeAddresses(Guide& guide);
void writeOrders(Guide& guide);
/// Opens an order from the list, changes it, and meets the question asked on going to another.
void openAndChange(Guide& guide);
/// Copies an order, and looks at what was last paid for its first line.
void copyOrder(Guide& guide);
/// Types the catalogue, picks from it into a new order, and writes it out to `file`.
void catalogue(Guide& guide, const QString& file);
/// Looks at what the orders come to, and lists those of one vendor.
void spending(Guide& guide);
/// Asks for a quote for a whole list of items.
void longRequest(Guide& guide);
void sizes(Guide& guide);

/// Shows an order as it is printed, changes its look and changes it back.
void viewOrder(Guide& guide);
/// Looks at the pages of the long request, and saves them as a PDF in `folder`.
void printPages(Guide& guide, const QString& folder);
void exportOrders(Guide& guide, const QString& file);
void readHelp(Guide& guide);

/// In a box of the order shown: the list of what it remembers, and the menu that forgets an entry.
void histories(Guide& guide);
/// Takes contacts over as vendors, from a contact manager's file, which it writes in `folder`.
void importContacts(Guide& guide, const QString& folder);
/// Takes a vendor's price list over into the catalogue, from a file that it writes in `folder`.
void importTable(Guide& guide, const QString& folder);
/// Backs the data up to `folder`, and compares the two.
void backUp(Guide& guide, const QString& folder);

/// In the first office, ten days later.
void beReminded(Guide& guide);
/// The desktop changes its colours while the program runs.
void followDesktop(Guide& guide);

/// In a second office: restores the first one's backup.
void restore(Guide& guide, const QString& folder);
/// In a second office: loses the end of the list in the folder `data`, and rebuilds it.
void rebuildList(Guide& guide, const QString& data);
/// In a second office: takes the catalogue over from `file`.
void takeOver(Guide& guide, const QString& file);

}  // namespace bramblet::tour
