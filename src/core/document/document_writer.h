// The order document: one self-contained HTML file per order, its printable form and its only full
// record. Its first lines hold every field as a marker (order_markers.h), the rest is the form.
#pragma once

#include "core/document/order.h"
#include "core/platform/file_system.h"
#include "core/platform/regional_formats.h"
#include "core/settings/settings.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace bramblet {

/// What the document depends on besides the order.
struct DocumentStyle {
    const Settings& settings;
    bool taxFreight;  ///< shipping is taxed: its row comes before the tax row
    const RegionalFormats& formats;
};

/// The document's text, in the code page, every line ending in CR LF. The order must already be
/// totalled. Throws Fault: TypeMismatch for an amount box that cannot be read, Overflow when the
/// form would need more than 32,767 rows.
std::string orderDocument(const Order& order, const DocumentStyle& style);

/// Only what the order is opened from again, for one whose form cannot be written.
std::string orderMarkers(const Order& order);

/// An address as HTML lines: each line of the text becomes a line of the file after a CR LF; a line
/// end becomes "<br>", the last one "<p>", and neither is added after a ">".
void MakeHTML_NoteBlock(std::string_view text, std::string& result);

}  // namespace bramblet
