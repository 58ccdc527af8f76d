#include "plateOrder.h"

#include "AcUtText.h"
#include "TrfcBlockChain.h"
#include "TrfcDocSettings.h"

namespace {
// Library files are named in the order of the signs on a post: the greatest name lowest.
int sinkToOrder(TrfcBlockChain& chain, int index) {
    while (index >= 1 && acutWcscmp(chain.getAt(index)->descriptor().blockFile, chain.getAt(index - 1)->descriptor().blockFile) > 0)
        if (chain.moveDnBlock(index, &index) != Acad::eOk)
            break;
    return index;
}

bool isSupplementary(const std::wstring& relativePath) {
    const std::wstring& folder = TrfcAppSettings::getAppString(APP_TABLES_COMPL_DIR);
    return !folder.empty() && relativePath.find(folder) != std::wstring::npos;
}
} // namespace

int addPlate(TrfcBlockChain& chain, std::unique_ptr<TrfcTable> plate, const std::wstring& relativePath) {
    if (chain.appendBlockUpward(plate.get()) != Acad::eOk)
        return -1;
    plate.release(); // the chain's now
    int index = chain.upCount() - 1;
    if (TrfcDocSettings::getDocInt(DOC_AUTO_ORDER_TABLES) != 0)
        index = sinkToOrder(chain, index);
    if (isSupplementary(relativePath))
        chain.setComplementary(index, true);
    pointToMainSigns(chain);
    return index;
}

void pointToMainSigns(TrfcBlockChain& chain) {
    for (int i = chain.upCount() - 1; i >= 0; --i)
        if (const auto* const topmost = TrfcTable::cast(chain.getAt(i))) {
            if (!topmost->isComplementary())
                chain.resetComplIndices();
            return;
        }
}
