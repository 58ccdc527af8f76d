// Result buffers and the codes of the command-line functions.
#pragma once

#include "AcAdesk.h"
#include "AcDbObjectId.h"

using ads_real = double;
using ads_point = ads_real[3];
using ads_name = std::intptr_t[2]; // entity or selection set name

struct ads_binary {
    short clen;
    char* buf;
};
union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    std::intptr_t rlname[2];
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    ads_binary rbinary;
};
// One item of a chain. Texts and binaries are owned by the item; acutRelRb releases a chain.
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

enum AdsResultType : short {
    RTNONE = 5000,
    RTREAL = 5001,
    RTPOINT = 5002,
    RTSHORT = 5003,
    RTANG = 5004,
    RTSTR = 5005,
    RTENAME = 5006,
    RTPICKS = 5007,
    RTORINT = 5008,
    RT3DPOINT = 5009,
    RTLONG = 5010,
    RTVOID = 5014,
    RTLB = 5016,
    RTLE = 5017,
    RTNIL = 5019,
    RTT = 5021,
};
enum AdsStatus : int {
    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RTREJ = -5003,
    RTFAIL = -5004,
    RTKWORD = -5005,
};

// A single empty item of that type; null when the type is unknown.
resbuf* acutNewRb(int type);
// Builds a chain from (type, value) pairs ended by 0: reals for 10..59 and 140..147 (points
// as pointers for 10..18), shorts for 60..79 and 170..175, longs for 90..99, texts for
// 0..9, 100, 102, 300..309, ids as ads_name for 320..369.
resbuf* acutBuildList(int type, ...);
int acutRelRb(resbuf* chain);
resbuf* acutCopyRb(const resbuf* chain);
