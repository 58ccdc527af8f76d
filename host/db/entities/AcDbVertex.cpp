// Vertices of the heavy polylines. They draw nothing: the polyline draws for them.
#include "AcDbEntities.h"

#include "DbFields.h"

HOST_RX_DEFINE(AcDbVertex, AcDbEntity, L"VERTEX")
HOST_RX_DEFINE(AcDb2dVertex, AcDbVertex, L"VERTEX")
HOST_RX_DEFINE(AcDb3dPolylineVertex, AcDbVertex, L"VERTEX")
DB_FILE_FIELDS(AcDbVertex, AcDbEntity);
DB_FILE_FIELDS(AcDb2dVertex, AcDbVertex);

template <class Self, class Archive> void AcDbVertex::fields(Self& self, Archive& archive) {
    archive(self.mPosition, self.mFlags);
}

template <class Self, class Archive> void AcDb2dVertex::fields(Self& self, Archive& archive) {
    archive(self.mBulge, self.mStartWidth, self.mEndWidth, self.mTangent);
}
