// make_folder FOLDER ORDERS ITEMS ADDRESSES HISTORY_LINES

#include "full_folder.h"

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 6) {
        std::cerr << "make_folder FOLDER ORDERS ITEMS ADDRESSES HISTORY_LINES\n";
        return EXIT_FAILURE;
    }
    bramblet::bench::fillFolder(
        argv[1], {std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4]), std::atoi(argv[5])});
}
