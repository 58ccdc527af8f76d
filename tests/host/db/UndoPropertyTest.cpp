// Any sequence of commands is taken back and done again step by step: the whole drawing, listed as
// text, is compared after each step.
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbEntities.h"
#include "DbObjectAccess.h"

#include "AcUtText.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <memory>

namespace {
// A block's list keeps erased entities, which are no part of the drawing.
void listBlock(const AcDbBlockTableRecord& block, std::vector<std::wstring>& lines) {
    lines.push_back(block.name() + L" " + block.comments());
    for (const AcDbObjectId id : block.entityIds())
        if (!id.isErased())
            lines.push_back(id.handle().text());
}
// Everything that stands in the drawing, object by object.
std::vector<std::wstring> listing(AcDbDatabase& db) {
    std::vector<std::wstring> lines;
    for (const AcDbObjectId id : DbObjectAccess::allIds(db)) {
        AcDbObjectPointer<AcDbObject> object(id);
        AcDbRecordingFiler filer;
        if (const AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(object.object()))
            listBlock(*block, lines);
        else
            object->dwgOut(&filer);
        lines.push_back(id.handle().text() + L" " + object->isA()->name() + L" of " + object->ownerId().handle().text());
        lines.insert(lines.end(), filer.lines().begin(), filer.lines().end());
        for (const AcDbObjectId reactor : object->persistentReactors())
            lines.push_back(L"reactor " + reactor.handle().text());
        lines.push_back(L"extension " + object->extensionDictionary().handle().text());
    }
    lines.push_back(acFormat(L"LTSCALE %g", db.ltscale()));
    return lines;
}

class Session {
public:
    explicit Session(AcDbDatabase& db) : mDb(db) {}
    void run(int operation, int argument) {
        switch (operation) {
        case 0: addLine(argument); break;
        case 1: changeOne(argument, [&](AcDbLine& line) { line.setEndPoint({argument * 1.0, 0.0, 0.0}); }); break;
        case 2: changeOne(argument, [](AcDbLine& line) { line.erase(); }); break;
        case 3: changeOne(argument, [&](AcDbLine& line) { setData(line, argument); }); break;
        case 4: changeOne(argument, [](AcDbLine& line) { line.createExtensionDictionary(); }); break;
        case 5: setEntry(argument); break;
        case 6: addLayer(argument); break;
        case 7: mDb.setLtscale(1.0 + argument); break;
        case 8: insertBlock(); break;
        case 9: AcDbObjectPointer<AcDbBlockTableRecord>(mDb.modelSpaceId(), AcDb::kForWrite)->setComments(std::to_wstring(argument).c_str()); break;
        default: copyOne(argument); break;
        }
    }

private:
    void addLine(int argument) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(mDb.modelSpaceId(), AcDb::kForWrite);
        auto* const line = new AcDbLine({}, {argument * 0.5, 1.0, 0.0});
        AcDbObjectId id;
        space->appendAcDbEntity(id, line);
        line->close();
    }
    AcDbObjectId pick(int argument) const {
        std::vector<AcDbObjectId> live;
        for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(mDb.modelSpaceId())->entityIds())
            if (!id.isErased())
                live.push_back(id);
        return live.empty() ? AcDbObjectId::kNull : live[static_cast<std::size_t>(argument) % live.size()];
    }
    template <class Change> void changeOne(int argument, Change change) {
        AcDbObjectPointer<AcDbLine> line(pick(argument), AcDb::kForWrite);
        if (line)
            change(*line.object());
    }
    static void setData(AcDbLine& line, int argument) {
        resbuf* const chain = acutBuildList(1001, L"APP", 1070, argument, 0);
        line.setXData(chain);
        acutRelRb(chain);
    }
    void setEntry(int argument) {
        AcDbObjectPointer<AcDbDictionary> named(mDb.namedObjectsDictionaryId(), AcDb::kForWrite);
        const std::wstring key = L"KEY" + std::to_wstring(argument % 4);
        if (argument % 5 == 0) {
            named->remove(key.c_str());
            return;
        }
        auto* const record = new AcDbXrecord;
        AcDbObjectId id;
        named->setAt(key.c_str(), record, id);
        resbuf* const chain = acutBuildList(70, argument, 0);
        record->setFromRbChain(*chain);
        acutRelRb(chain);
        record->close();
    }
    void addLayer(int argument) {
        AcDbObjectPointer<AcDbLayerTable> layers(mDb.layerTableId(), AcDb::kForWrite);
        auto layer = std::make_unique<AcDbLayerTableRecord>();
        layer->setName((L"Layer" + std::to_wstring(argument % 6)).c_str());
        if (layers->add(layer.get()) == Acad::eOk)
            layer.release()->close();
    }
    void insertBlock() {
        AcDbDatabase library;
        Session(library).addLine(3);
        Session(library).addLayer(1);
        AcDbObjectId id;
        mDb.insert(id, L"*U", &library);
    }
    void copyOne(int argument) {
        AcDbObjectIdArray ids;
        ids.append(pick(argument));
        AcDbIdMapping map;
        if (!ids[0].isNull())
            mDb.deepCloneObjects(ids, mDb.modelSpaceId(), map);
    }
    AcDbDatabase& mDb;
};
} // namespace

TEST(UndoProperty, any_sequence_of_commands_goes_back_and_forth) {
    EXPECT_TRUE(rc::check("undo and redo", [] {
        AcDbDatabase db;
        Session session(db);
        std::vector<std::vector<std::wstring>> states{listing(db)};
        const int commands = *rc::gen::inRange(1, 8);
        for (int command = 0; command < commands; ++command) {
            db.startUndoRecord();
            const int operations = *rc::gen::inRange(1, 6);
            for (int i = 0; i < operations; ++i) {
                const int operation = *rc::gen::inRange(0, 11), argument = *rc::gen::inRange(0, 20);
                session.run(operation, argument);
            }
            if (std::vector<std::wstring> now = listing(db); now != states.back())
                states.push_back(std::move(now));
        }
        // A command may change an object to what it was; then one more step shows the same state.
        for (std::size_t at = states.size() - 1; at > 0;) {
            RC_ASSERT(db.undo());
            const std::vector<std::wstring> now = listing(db);
            if (now == states[at])
                continue;
            RC_ASSERT(now == states[--at]);
        }
        for (std::size_t at = 0; at + 1 < states.size();) {
            RC_ASSERT(db.redo());
            const std::vector<std::wstring> now = listing(db);
            if (now == states[at])
                continue;
            RC_ASSERT(now == states[++at]);
        }
    }));
}
