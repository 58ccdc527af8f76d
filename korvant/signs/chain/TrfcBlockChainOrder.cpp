// The order of a chain: moves, main and complementary signs, the check of the file names.
#include "TrfcBlockChain.h"

#include "AcUtText.h"
#include "TrfcTable.h"

#include <algorithm>

const TrfcTable* TrfcBlockChain::tableAt(int upIndex) const {
    return TrfcTable::cast(mUpBlocks[static_cast<std::size_t>(upIndex)].get());
}

bool TrfcBlockChain::isComplementary(int upIndex) const {
    const TrfcTable* table = tableAt(upIndex);
    return table != nullptr && table->isComplementary();
}

// ---- main and complementary signs ---------------------------------------------------------

// The walk begins at the sign itself: a main sign first points to itself, and the next
// resetComplIndices gives it the sign above it.
Acad::ErrorStatus TrfcBlockChain::setComplementary(int index, bool on) {
    assertWriteEnabled();
    if (index < 0 || index >= upCount() || tableAt(index) == nullptr)
        return Acad::eInvalidIndex;
    TrfcTable* table = TrfcTable::cast(mUpBlocks[static_cast<std::size_t>(index)].get());
    if (!on) {
        table->setComplIndex(-1);
        return Acad::eOk;
    }
    int main = index;
    while (main < upCount() && isComplementary(main))
        ++main;
    if (main == upCount())
        return Acad::eInvalidIndex;
    table->setComplIndex(static_cast<Adesk::Int16>(main));
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::resetComplIndices() {
    assertWriteEnabled();
    int main = -1;
    for (int i = upCount() - 1; i >= 0; --i) {
        TrfcTable* table = TrfcTable::cast(mUpBlocks[static_cast<std::size_t>(i)].get());
        if (table == nullptr)
            continue;
        if (table->isComplementary())
            table->setComplIndex(static_cast<Adesk::Int16>(main));
        else
            main = i;
    }
    return Acad::eOk;
}

// ---- moves ----------------------------------------------------------------------------------

// The last block below the group of the block: a main sign's complementary signs lie directly below it.
int TrfcBlockChain::endBelowGroup(int upIndex, bool alone) const {
    int below = upIndex - 1;
    while (!alone && below >= 0 && isComplementary(below))
        --below;
    return below;
}

// The blocks (below, index] and (index, end] of the upward list change places.
void TrfcBlockChain::swapUpGroups(int below, int index, int end) {
    const auto at = [this](int place) { return mUpBlocks.begin() + place; };
    std::rotate(at(std::max(below, -1) + 1), at(index + 1), at(end + 1));
    repos(mBasePoint, rotation());
    resetComplIndices();
}

int TrfcBlockChain::clampToUp(int index) const {
    return std::clamp(index, 0, upCount() - 1);
}

Acad::ErrorStatus TrfcBlockChain::moveDnBlock(int index, int* newIndex) {
    assertWriteEnabled();
    if (index >= upCount())
        return moveDnInLowerList(index, newIndex);
    if (index < 1)
        return Acad::eInvalidIndex;
    const bool alone = isComplementary(index);
    const int a = endBelowGroup(index, alone);
    const int b = endBelowGroup(a, alone); // a lowest group has nothing below: both ends are none
    *newIndex = clampToUp(index + (b - a));
    swapUpGroups(b, a, index);
    return Acad::eOk;
}

// Down in the lower list is away from the base point. The two blocks fill the same stretch in either order.
Acad::ErrorStatus TrfcBlockChain::moveDnInLowerList(int index, int* newIndex) {
    const int place = index - upCount();
    if (place >= downCount() - 1)
        return Acad::eInvalidIndex;
    auto& inner = mDownBlocks[static_cast<std::size_t>(place)];
    auto& outer = mDownBlocks[static_cast<std::size_t>(place) + 1];
    const AcGePoint3d start = inner->position();
    std::swap(inner, outer);
    inner->setPosition(start);
    outer->setPosition(inner->topPoint());
    *newIndex = index + 1;
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::moveUpBlock(int index, int* newIndex) {
    assertWriteEnabled();
    if (index > upCount()) {
        const Acad::ErrorStatus es = moveDnBlock(index - 1, newIndex);
        *newIndex = index - 1;
        return es;
    }
    if (index < 0 || index + 1 >= upCount())
        return Acad::eInvalidIndex;
    const bool alone = isComplementary(index);
    const int a = endBelowGroup(index, alone);
    int b = index + 1;
    while (!alone && b < upCount() && isComplementary(b))
        ++b;
    *newIndex = clampToUp(b);
    swapUpGroups(a, index, *newIndex);
    return Acad::eOk;
}

// ---- order ----------------------------------------------------------------------------------

Acad::ErrorStatus TrfcBlockChain::checkTableOrder(bool* ok) const {
    assertReadEnabled();
    *ok = true;
    const ACHAR* previous = L"";
    for (int i = 0; i < upCount(); ++i) {
        const TrfcTable* table = tableAt(i);
        if (table == nullptr || table->isComplementary())
            continue;
        const ACHAR* file = table->descriptor().blockFile;
        if (*previous != L'\0' && acutWcscmp(file, previous) > 0)
            *ok = false;
        previous = file;
    }
    return Acad::eOk;
}
