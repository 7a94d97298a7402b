#include "core/platform/code_page.h"

namespace bramblet {

const CodePage& systemCodePage() {
    static const CodePage page = windows1252();
    return page;
}

}  // namespace bramblet
