#include "SignsFixture.h"

#include "TrfcClasses.h"
#include "TrfcSignFamilies.h"

#include "AcGiReceivers.h"
#include "TestSupport.h"
#include "TrfcBlockEnt.h"
#include "TrfcDocSettings.h"
#include "TrfcPostPages.h"
#include "TrfcStateChangeData.h"

#include <cstdlib>

// ---- dialogs ------------------------------------------------------------------------------------
DialogAnswers& dialogAnswers() {
    static DialogAnswers answers;
    return answers;
}

// ---- fixture --------------------------------------------------------------------------------------
namespace {
// The family with a dialog that the test answers.
TrfcEntityFamily answering(TrfcEntityFamily family, bool (*edit)(AcDbEntity&, int)) {
    family.edit = edit;
    return family;
}

void registerClasses() {
    static bool done = false;
    if (done)
        return;
    done = true;
    registerTrfcClasses();
    static const TrfcEntityFamily kPost = answering(kPostFamily, [](AcDbEntity& clone, int page) {
        return dialogAnswers().post && dialogAnswers().post(static_cast<TrfcPost&>(clone), page);
    });
    static const TrfcEntityFamily kMarking = answering(kMarkingFamily, [](AcDbEntity& clone, int) {
        return dialogAnswers().blockEnt && dialogAnswers().blockEnt(static_cast<TrfcBlockEnt&>(clone));
    });
    registerEntityFamily(TrfcPost::desc(), &kPost);
    registerEntityFamily(TrfcBlockEnt::desc(), &kMarking);
}
} // namespace

SignsFixture::SignsFixture() {
    registerClasses();
    mDatabase = std::make_unique<AcDbDatabase>();
    acdbHostApplicationServices()->setWorkingDatabase(mDatabase.get());
    makeSettings();
    makeLibrary();
    dialogAnswers() = {};
    setStateChangeData(std::make_unique<TrfcStateChangeData>());
    mEarlierSink = acSetPrintSink([this](std::wstring_view text) { printed += text; });
}

SignsFixture::~SignsFixture() {
    acSetPrintSink(mEarlierSink);
    dialogAnswers() = {};
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

void SignsFixture::makeSettings() {
    using namespace TrfcAppSettings;
    clearDocDefaults();
    constexpr std::pair<const ACHAR*, const ACHAR*> kDefaults[] = {
        {DOC_CURRENT_SCALE, L"500"},       {DOC_BASEPOINTD, L"0.002"},        {DOC_POST_ALPHA0, L"45"},          {DOC_POST_MIN_AB, L"0.01"},
        {DOC_POST_MIN_CD, L"0.006"},       {DOC_POST_DEFAULT_TYPE, L"0"},     {DOC_EXISTING_TABLE_D, L"0.008"},  {DOC_PLANNED_TABLE_D, L"0.012"},
        {DOC_EXISTING_LAMP_D, L"0.004"},   {DOC_PLANNED_LAMP_D, L"0.006"},    {DOC_BLOCK_DEFAULT_TYPE, L"0"},    {DOC_BLOCK_ENT_DEFAULT_TYPE, L"0"},
        {DOC_ANNO_MIN_DIST, L"0.02"},      {DOC_ANNO_HEIGHT, L"0.0025"},      {DOC_ANNO_COLOR, L"3"},            {DOC_ANNO_TYPE, L"Standard"},
        {DOC_ANNO_LINE_COLOR, L"1"},       {DOC_ANNO_LINE_TYPE, L"ByLayer"},  {DOC_ANNO_LINE_WEIGHT, L"35"},     {DOC_USE_OTHER_COLOR_TABLES, L"0"},
        {DOC_USE_GRAYSCALE_TABLES, L"0"},  {DOC_USE_WHITESCALE_TABLES, L"0"}, {DOC_AUTO_ORDER_TABLES, L"1"},
        {DOC_POST_DEFAULT_DWG, L"Oszlopok\\Jelzőoszlop.dwg"},                 {DOC_POST_ALIEN_DWG, L"Oszlopok\\Idegen oszlop.dwg"},
    };
    for (const auto& [key, value] : kDefaults)
        setDocDefault(key, value);
    setAppString(APP_SYMBOL_BASE_PATH, library.path(L"Jelek"));
    setAppString(APP_POSTS_BASE_PATH, library.path(L"Oszlop"));
}

// The widths tell the foot files apart.
void SignsFixture::makeLibrary() {
    for (const wchar_t* symbol : {L"TrfcTableEliminate", L"TrfcTableCovered", L"TrfcBlockNotFound"})
        library.add(std::wstring(L"Jelek\\") + symbol + L".dwg", "box 1 1\n");
    library.add(L"Jelek\\TrfcBlockDefault.dwg", "box 1 1\n");
    library.add(L"Oszlop\\Oszlopok\\Jelzőoszlop.dwg", "disk 0.5\n");
    library.add(L"Oszlop\\Oszlopok\\$Jelzőoszlop.dwg", "disk 0.6\n");
    library.add(L"Oszlop\\Oszlopok\\$$Jelzőoszlop.dwg", "disk 0.7\n");
    library.add(L"Oszlop\\Oszlopok\\Idegen oszlop.dwg", "disk 0.8\n");
    library.add(L"Oszlop\\Oszlopok\\Egyszerű.dwg", "disk 0.9\n");
    library.add(L"Oszlop\\Error.dwg", "disk 0.3\n");
}

void SignsFixture::set(TrfcRealKey key, const ACHAR* value) const {
    TrfcDocSettings::setDocDouble(key, acWtof(value));
}
void SignsFixture::set(TrfcIntKey key, const ACHAR* value) const {
    TrfcDocSettings::setDocInt(key, acWtoi(value));
}

void SignsFixture::setScale(int denominator) const {
    TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, denominator);
}

AcDbObjectId SignsFixture::makeBlock(const std::vector<AcDbEntity*>& entities) {
    AcDbBlockTable* table = nullptr;
    mDatabase->getBlockTable(table, AcDb::kForWrite);
    auto* record = new AcDbBlockTableRecord;
    record->setName(acFormat(L"test%d", table->recordIds().length()).c_str());
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    table->close();
    for (AcDbEntity* entity : entities) {
        EXPECT_EQ(record->appendAcDbEntity(entity), Acad::eOk);
        entity->close();
    }
    record->close();
    return id;
}

AcDbObjectId SignsFixture::boxBlock(double left, double bottom, double right, double top) {
    auto* box = new AcDbPolyline(4);
    const AcGePoint2d corners[] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
    for (unsigned int i = 0; i < 4; ++i)
        box->addVertexAt(i, corners[i]);
    box->setClosed(true);
    return makeBlock({box});
}

S_BLOCK_DESCRIPTOR SignsFixture::descriptor(const std::wstring& file, AcDbObjectId block) const {
    S_BLOCK_DESCRIPTOR made = describeBlockFile(library.root(), file);
    made.blockId = block;
    return made;
}

AcDbAttributeDefinition* SignsFixture::attribute(const ACHAR* tag, const ACHAR* text, const AcGePoint3d& at, bool invisible) {
    auto* definition = new AcDbAttributeDefinition;
    definition->setTag(tag);
    definition->setTextString(text);
    definition->setPosition(at);
    definition->setHeight(0.2);
    definition->setInvisible(invisible);
    return definition;
}

AcDbObjectId SignsFixture::addEntity(AcDbEntity* entity) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(mDatabase->modelSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

std::unique_ptr<TrfcPost> SignsFixture::newPost(int plates) {
    auto post = std::make_unique<TrfcPost>();
    post->setBaseBlock(loadBlockTemplate(TrfcAppSettings::getAppString(APP_POSTS_BASE_PATH), L"Oszlopok\\Jelzőoszlop.dwg"));
    post->setPointA({0.0, 0.0, 0.0});
    post->setPointB({0.0, 10.0, 0.0});
    post->setPointD({6.0, 20.0, 0.0}, true);
    post->resetAnnotation();
    for (int i = 0; i < plates; ++i)
        post->signChain().appendBlockUpward(newTable(acFormat(L"plate%d.dwg", plates - i)));
    post->setPlacementPhase(5);
    return post;
}

// ---- looks ------------------------------------------------------------------------------------------

std::vector<std::wstring> drawn(AcGiDrawable& drawable, bool dragging) {
    return giRecord(drawable, GiNamer(), dragging);
}

std::vector<std::wstring> linesWith(const std::vector<std::wstring>& lines, const std::wstring& word) {
    std::vector<std::wstring> found;
    for (const std::wstring& line : lines) {
        const std::wstring text = line.substr(std::min(line.find_first_not_of(L' '), line.size()));
        if (text.starts_with(word))
            found.push_back(text);
    }
    return found;
}

std::vector<std::wstring> filed(const AcDbObject& object) {
    AcDbRecordingFiler filer;
    object.dwgOut(&filer);
    return filer.lines();
}

std::vector<std::unique_ptr<AcDbEntity>> exploded(const AcDbEntity& entity) {
    AcDbVoidPtrArray raw;
    EXPECT_EQ(entity.explode(raw), Acad::eOk);
    std::vector<std::unique_ptr<AcDbEntity>> parts;
    for (void* part : raw)
        parts.emplace_back(static_cast<AcDbEntity*>(part));
    return parts;
}

std::vector<std::wstring> classNames(const std::vector<std::unique_ptr<AcDbEntity>>& entities) {
    std::vector<std::wstring> names;
    for (const auto& entity : entities)
        names.emplace_back(entity->isA()->name());
    return names;
}

namespace {
constexpr double kTolerance = 1e-9;
}

void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected, const char* what) {
    EXPECT_LE(actual.distanceTo(expected), kTolerance) << what << " is " << actual.x << "," << actual.y << "," << actual.z << " and not " << expected.x << ","
                                                       << expected.y << "," << expected.z;
}

void expectNear(const AcGeVector3d& actual, const AcGeVector3d& expected, const char* what) {
    expectNear(AcGePoint3d::kOrigin + actual, AcGePoint3d::kOrigin + expected, what);
}

void expectLaidWithoutGap(const TrfcBlockChain& chain) {
    for (int list = 0; list < 2; ++list) {
        AcGePoint3d end = chain.position();
        const int first = list == 0 ? 0 : chain.upCount(), last = list == 0 ? chain.upCount() : chain.size();
        for (int i = first; i < last; ++i) {
            expectNear(chain.getAt(i)->position(), end, "start of a block");
            end = chain.getAt(i)->topPoint();
        }
    }
}

std::vector<std::wstring> upFiles(const TrfcBlockChain& chain) {
    std::vector<std::wstring> files;
    for (int i = 0; i < chain.upCount(); ++i)
        files.emplace_back(chain.getAt(i)->descriptor().blockFile);
    return files;
}

std::vector<int> upComplIndices(const TrfcBlockChain& chain) {
    std::vector<int> indices;
    for (int i = 0; i < chain.upCount(); ++i) {
        const TrfcTable* table = TrfcTable::cast(chain.getAt(i));
        indices.push_back(table != nullptr ? table->complIndex() : -2);
    }
    return indices;
}

// ---- grips --------------------------------------------------------------------------------------------

Grips::Grips(const AcDbEntity& entity) {
    EXPECT_EQ(entity.getGripPoints(mGrips, 1.0, 5, AcGeVector3d::kZAxis, 0), Acad::eOk);
}

Grips::~Grips() {
    for (AcDbGripData* grip : mGrips)
        delete grip;
}

std::vector<std::wstring> Grips::names() const {
    std::vector<std::wstring> names;
    for (const AcDbGripData* grip : mGrips)
        names.push_back(static_cast<const TrfcGripAppData*>(grip->appData())->name);
    return names;
}

AcDbGripData* Grips::find(const std::wstring& name) const {
    for (AcDbGripData* grip : mGrips)
        if (static_cast<const TrfcGripAppData*>(grip->appData())->name == name)
            return grip;
    return nullptr;
}

void dragGrip(AcDbEntity& entity, const std::wstring& name, const AcGeVector3d& by) {
    const Grips grips(entity);
    AcDbGripData* grip = grips.find(name);
    ASSERT_NE(grip, nullptr) << "no such grip: " << acToUtf8(name);
    AcDbVoidPtrArray data;
    data.append(grip->appData());
    ASSERT_EQ(entity.moveGripPointsAt(data, by, 0), Acad::eOk);
}
