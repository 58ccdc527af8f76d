// LTYPE: Open Design description of DWG, chapter "LTYPE (57)", form up to R2004: 256 bytes of texts always.
#include "DwgRecordName.h"

#include <cmath>

template <> struct DbObjectAccess::DwgFields<AcDbLinetypeTableRecord> {
    static constexpr std::size_t kTextArea = 256;
    static constexpr unsigned kAlignment = 'A';

    template <class Stream> static void file(Stream& s, AcDbLinetypeTableRecord& type) {
        DwgRecordName head;
        head.file(s, DbObjectAccess::name(type));
        s.TV(type.mComments);
        double length = 0.0;
        for (const double dash : type.mDashes)
            length += std::abs(dash);
        s.BD(length);
        unsigned alignment = kAlignment;
        s.RC(alignment);
        auto count = static_cast<Adesk::UInt8>(type.mDashes.size());
        s.RC(count);
        if constexpr (Stream::kReading)
            type.mDashes.resize(count);
        type.mComplex.resize(type.mDashes.size());
        for (std::size_t i = 0; i < type.mDashes.size(); ++i)
            dash(s, type.mDashes[i], type.mComplex[i]);
        texts(s, type.mStrings);
        AcDbObjectId external;
        s.H(5, external);
        for (auto& complex : type.mComplex)
            s.H(5, complex.style);
    }

    template <class Stream, class Complex> static void dash(Stream& s, double& dashLength, Complex& complex) {
        s.BD(dashLength);
        s.BS(complex.shape);
        s.RD(complex.xOffset);
        s.RD(complex.yOffset);
        s.BD(complex.scale);
        s.BD(complex.rotation);
        s.BS(complex.flags);
    }
    static void texts(DwgIn& s, std::vector<Adesk::UInt8>& area) { area = s.data().bytes(kTextArea); }
    static void texts(DwgOut& s, std::vector<Adesk::UInt8>& area) {
        area.resize(kTextArea);
        s.data().bytes(area.data(), area.size());
    }
};
extern const DwgClassRow kDwgLinetype = dwgClassRow<AcDbLinetypeTableRecord>(0x39);
