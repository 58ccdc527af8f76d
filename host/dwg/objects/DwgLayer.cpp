// LAYER: Open Design description of DWG, chapter "LAYER (51)", R2000 form: states and line weight share
// one number.
#include "DwgCommonData.h"
#include "DwgRecordName.h"

template <> struct DbObjectAccess::DwgFields<AcDbLayerTableRecord> {
    static constexpr unsigned kFrozen = 1, kOff = 2, kFrozenInNew = 4, kLocked = 8, kPlottable = 16;
    static constexpr unsigned kWeightShift = 5, kWeightMask = 31;

    template <class Stream> static void file(Stream& s, AcDbLayerTableRecord& layer) {
        DwgRecordName head;
        head.file(s, DbObjectAccess::name(layer));
        unsigned values = (layer.mFrozen ? kFrozen : 0U) | (layer.mOff ? kOff : 0U) | (layer.mFrozenInNew ? kFrozenInNew : 0U) |
                          (layer.mLocked ? kLocked : 0U) | (layer.mPlottable ? kPlottable : 0U) |
                          dwgLineWeightNumber(layer.mLineWeight) << kWeightShift;
        s.BS(values);
        s.color(layer.mColor);
        AcDbObjectId external;
        s.H(5, external);
        s.plotStyle(layer.mPlotStyle);
        s.layerLineType(layer.mLinetype);
        if constexpr (Stream::kReading) {
            layer.mFrozen = (values & kFrozen) != 0;
            layer.mOff = (values & kOff) != 0;
            layer.mFrozenInNew = (values & kFrozenInNew) != 0;
            layer.mLocked = (values & kLocked) != 0;
            layer.mPlottable = (values & kPlottable) != 0;
            layer.mLineWeight = static_cast<AcDb::LineWeight>(dwgLineWeight((values >> kWeightShift) & kWeightMask));
        }
    }
};
extern const DwgClassRow kDwgLayer = dwgClassRow<AcDbLayerTableRecord>(0x33);
