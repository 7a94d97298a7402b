#include "tour/sample_company.h"

namespace bramblet::tour {

// Tables: a row a line.
// clang-format off

const std::vector<SampleAddress> kVendors{
    {"Ashdown Timber Yard", "Unit 4, Canal Wharf\nMillbrook, OR 97045\nPhone 503-555-0114\nattn: Ruth Ames"},
    {"Brightwell Fasteners", "210 Foundry Street\nPortland, OR 97209\nPhone 503-555-0162"},
    {"Corby Glass & Mirror", "88 Quarry Road\nSalem, OR 97301\nPhone 503-555-0133"},
    {"Dunmore Paints", "1406 Larch Avenue\nEugene, OR 97402\nPhone 541-555-0178\nFax 541-555-0179"},
    {"Eastgate Hardware Supply", "31 Station Parade\nGresham, OR 97030\nPhone 503-555-0121"},
    {"Fenwick Office Products", "5 Court Square, Suite 200\nPortland, OR 97204\nPhone 503-555-0147"},
    {"Grantham Tool Hire", "72 Depot Lane\nBeaverton, OR 97005\nPhone 503-555-0189"},
    {"Harrow Veneers", "19 Sawmill Road\nBend, OR 97701\nPhone 541-555-0102\nattn: Paul Niles"},
    {"Ivor & Daughters Upholstery", "3 Tannery Row\nHood River, OR 97031\nPhone 541-555-0155"},
    {"Jessop Safety Equipment", "640 Airport Way\nPortland, OR 97218\nPhone 503-555-0170"},
    {"Kestrel Haulage", "Gate 2, Freight Terminal\nTroutdale, OR 97060\nPhone 503-555-0196"},
    {"Lowick Adhesives", "1250 Resin Drive\nHillsboro, OR 97123\nPhone 503-555-0108"},
};

const std::vector<SampleAddress> kDestinations{
    {"Workshop", "Larkfield Joinery\n17 Orchard Lane\nOregon City, OR 97045"},
    {"Main Store", "Larkfield Joinery, Store\n19 Orchard Lane, rear yard\nOregon City, OR 97045\nOpen 7:30 to 4:00"},
    {"Office", "Larkfield Joinery\n2nd floor, 4 Bridge Street\nOregon City, OR 97045"},
    {"Site: Alder Court", "Alder Court, block C\n300 Alder Street\nPortland, OR 97205\nattn: site foreman"},
    {"Site: Harbour School", "Harbour Elementary School\n12 Wharf Road\nAstoria, OR 97103"},
    {"Site: Mill House", "The Mill House\n1 Weir Lane\nMcMinnville, OR 97128\nNo trucks over 12 ft"},
};

const std::vector<SampleOrder> kOrders{
    {false, true, "Ashdown Timber Yard", "Workshop", "1/8/2026", "1/14/2026", "AC-101", "Ann Lark",
     "Their truck", "Millbrook", "Net 30", "", "", "", "85",
     {{"40", "bd ft", "White oak 8/4, kiln dried, FAS", "9.85"},
      {"25", "bd ft", "Ash 5/4, select", "6.40"}}},
    {false, true, "Brightwell Fasteners", "Main Store", "1/12/2026", "", "", "Tom Reed", "UPS Ground",
     "Portland", "Net 30", "", ".05", "", "12.50",
     {{"12", "box", "Wood screws, brass, 8 x 1-1/2, 100 per box", "14.20"},
      {"6", "box", "Confirmat screws 7 x 50, 200 per box", "21.75"},
      {"30", "ea", "Threaded insert M6", "0.38"}}},
    {true, false, "Corby Glass & Mirror", "Site: Alder Court", "1/15/2026", "2/20/2026", "AC-101",
     "Ann Lark", "", "", "", "Please quote delivered, with lead time", "", "", "",
     {{"14", "pane", "Tempered glass 10 mm, 600 x 2100, polished edges", "0"},
      {"4", "pane", "Mirror 6 mm, 900 x 1800, safety backed", "0"}}},
    {false, false, "Dunmore Paints", "Workshop", "1/21/2026", "1/28/2026", "MH-044", "Joe Lark",
     "Best way", "Eugene", "2% 10, Net 30", "Colors as per sample cards", ".1", "", "",
     {{"5", "gal", "Conversion varnish, satin, with catalyst", "78.00"},
      {"2", "gal", "Stain, walnut no. 4", "46.50"},
      {"10", "qt", "Retarder thinner", "11.90"}}},
    {true, true, "Fenwick Office Products", "Office", "1/26/2026", "", "", "Mary Cole", "", "", "", "",
     "", "", "", {{"10", "ream", "Copy paper, letter, 24 lb", "6.80"}, {"3", "ea", "Toner, black", "64.00"}}},
    {false, true, "Jessop Safety Equipment", "Main Store", "2/2/2026", "2/9/2026", "", "Tom Reed",
     "UPS Ground", "Portland", "Net 30", "", "", "", "18.40",
     {{"24", "pr", "Cut resistant gloves, size 9", "4.35"},
      {"6", "ea", "Respirator half mask, medium", "22.90"},
      {"20", "pk", "Filter cartridge P100, pair", "15.75"}}},
    {false, false, "Harrow Veneers", "Workshop", "2/6/2026", "2/27/2026", "HS-020", "Ann Lark",
     "Kestrel Haulage", "Bend", "Net 30", "Sequence matched, keep the flitch together", "", "", "120",
     {{"320", "sq ft", "Rift cut white oak veneer, 1/42, flitch 2217", "1.9450"},
      {"320", "sq ft", "Backer, poplar", "0.3825"}}},
    {true, false, "Grantham Tool Hire", "Site: Harbour School", "2/10/2026", "3/2/2026", "HS-020",
     "Joe Lark", "", "", "", "Two weeks from 2 March", "", "", "",
     {{"1", "ea", "Scissor lift, 19 ft, electric, per week", "0"},
      {"2", "ea", "Dust extractor, class M, per week", "0"}}},
    {false, false, "Eastgate Hardware Supply", "Site: Mill House", "2/17/2026", "2/24/2026", "MH-044",
     "Tom Reed", "UPS Ground", "Gresham", "Net 30", "Deliver to the foreman only", ".1", ".065", "24.75",
     {{"18", "pr", "Concealed hinge 110 degrees, soft close", "7.45"},
      {"9", "set", "Drawer slide, full extension, 21 in", "28.60"},
      {"26", "ea", "Bar pull, satin nickel, 6-5/16 in", "5.15"},
      {"4", "ea", "Flush bolt, brass, 8 in", "16.90"}}},
    {false, false, "Lowick Adhesives", "Workshop", "2/24/2026", "", "", "Joe Lark", "Best way",
     "Hillsboro", "Net 15", "", "", "", "9.80",
     {{"3", "pail", "PVA glue type II, 5 gal", "92.00"}, {"12", "tube", "Polyurethane adhesive", "8.25"}}},
    {true, true, "Ivor & Daughters Upholstery", "Site: Harbour School", "2/26/2026", "4/10/2026",
     "HS-020", "Mary Cole", "", "", "", "", "", "", "",
     {{"16", "ea", "Bench cushion 1200 x 450, contract vinyl, blue", "0"}}},
    {false, false, "Kestrel Haulage", "Site: Alder Court", "3/3/2026", "3/9/2026", "AC-101", "Ann Lark",
     "", "", "Net 7", "Tail lift needed", "", "", "",
     {{"2", "trip", "Workshop to Alder Court, 26 ft truck", "340.00"}}},
};

// clang-format on

}  // namespace bramblet::tour
