// Every setting of the module, written down once: its key, kind, unit, section of its file, installed value,
// the version that brought it and its place in the exchange. The readers and writers of the two files, the
// getters of a drawing's settings and the rows of the exchange live on this table.
#pragma once

#include "AcAdesk.h"

#include <span>

enum class TrfcSettingKind { integer, real, text };
// What a number is a measure of. Paper lengths are metres on the printed sheet.
enum class TrfcSettingUnit { none, paperLength, degree, denominator };

// The key of a setting, which knows the kind: a getter of another kind does not compile.
template <TrfcSettingKind Kind> struct TrfcKey {
    const ACHAR* name;
    constexpr explicit TrfcKey(const ACHAR* key) : name(key) {}
    constexpr operator const ACHAR*() const { return name; }
};
using TrfcIntKey = TrfcKey<TrfcSettingKind::integer>;
using TrfcRealKey = TrfcKey<TrfcSettingKind::real>;
using TrfcTextKey = TrfcKey<TrfcSettingKind::text>;

struct TrfcSetting {
    const ACHAR* key;
    TrfcSettingKind kind;
    TrfcSettingUnit unit;
    const ACHAR* section; // heading of the file above it
    const ACHAR* value;   // as installed
    int since;            // a file of before this version takes the value instead of its own; 0: never
    int exchangeRank;     // place among the rows of the exchange, from 1; 0: not exchanged
};

// The head of both files.
inline constexpr const ACHAR* VERSION_NUMBER = L"VERSION_NUMBER";

// The application table (settings.ini): of the user and the machine. The library's folders are the
// installation's own, so their installed values stand in its file alone.
//  ROW(key, kind, unit, section, value, since, exchange rank)
#define TRFC_APP_SETTINGS(ROW)                                                        \
    ROW(DEFAULTS_INI_PATH, text, none, L"defaults", L"", 0, 0)                        \
    ROW(APP_SYMBOL_BASE_PATH, text, none, L"block library", L"", 0, 0)                \
    ROW(APP_POSTS_BASE_PATH, text, none, L"block library", L"", 7, 0)                 \
    ROW(APP_TABLES_BASE_PATH, text, none, L"block library", L"", 0, 0)                \
    ROW(APP_TABLES_COMPL_DIR, text, none, L"block library", L"", 3, 0)                \
    ROW(APP_LAMPS_BASE_PATH, text, none, L"block library", L"", 0, 0)                 \
    ROW(APP_BLOCK_BASE_PATH, text, none, L"block library", L"", 0, 0)                 \
    ROW(APP_TABLES_UNIQ_DIR, text, none, L"block library", L"", 0, 0)                 \
    ROW(APP_TEMP_DIR_PATH, text, none, L"block library", L"", 0, 0)                   \
    ROW(USER_INTERFACE_TYPE, text, none, L"ui", L"RIBBON", 0, 0)                      \
    ROW(BLOCK_VIEW_SIZE, integer, none, L"block view size", L"2", 0, 0)

// The drawing settings (defaults.ini, then each drawing's own copy).
#define TRFC_DOC_SETTINGS(ROW)                                                                                   \
    ROW(DOC_SCALE_LIST, text, none, L"scale", L"", 0, 1)                                                         \
    ROW(DOC_CURRENT_SCALE, integer, denominator, L"scale", L"500", 0, 2)                                         \
    ROW(DOC_BASEPOINTD, real, paperLength, L"post measure", L"0.003000", 0, 3)                                   \
    ROW(DOC_POST_ALPHA0, real, degree, L"post measure", L"45.000000", 0, 4)                                      \
    ROW(DOC_POST_MIN_AB, real, paperLength, L"post measure", L"0.010000", 0, 5)                                  \
    ROW(DOC_POST_MIN_CD, real, paperLength, L"post measure", L"0.005000", 0, 6)                                  \
    ROW(DOC_POST_OVERLAP_ERR, real, paperLength, L"post measure", L"0.001000", 2, 7)                             \
    ROW(DOC_POST_DEFAULT_TYPE, integer, none, L"post measure", L"0", 5, 8)                                       \
    ROW(DOC_POST_DEFAULT_DWG, text, none, L"post measure", L"Oszlopok\\Jelzőoszlop.dwg", 7, 9)                   \
    ROW(DOC_POST_ALIEN_DWG, text, none, L"post measure", L"Oszlopok\\Idegen oszlop.dwg", 7, 10)                  \
    ROW(DOC_ANNO_MIN_DIST, real, paperLength, L"post annotation measure", L"0.020000", 6, 12)                    \
    ROW(DOC_ANNO_HEIGHT, real, paperLength, L"post annotation measure", L"0.002500", 6, 13)                      \
    ROW(DOC_ANNO_COLOR, integer, none, L"post annotation measure", L"256", 6, 14)                                \
    ROW(DOC_ANNO_TYPE, text, none, L"post annotation measure", L"Standard", 6, 15)                               \
    ROW(DOC_ANNO_LINE_COLOR, integer, none, L"post annotation measure", L"256", 6, 16)                           \
    ROW(DOC_ANNO_LINE_TYPE, text, none, L"post annotation measure", L"ByLayer", 6, 17)                           \
    ROW(DOC_ANNO_LINE_WEIGHT, integer, none, L"post annotation measure", L"-1", 6, 18)                           \
    ROW(DOC_EXISTING_TABLE_D, real, paperLength, L"block measure", L"0.008000", 0, 19)                           \
    ROW(DOC_PLANNED_TABLE_D, real, paperLength, L"block measure", L"0.010000", 0, 20)                            \
    ROW(DOC_EXISTING_LAMP_D, real, paperLength, L"block measure", L"0.006000", 0, 21)                            \
    ROW(DOC_PLANNED_LAMP_D, real, paperLength, L"block measure", L"0.008000", 0, 22)                             \
    ROW(DOC_BLOCK_DEFAULT_TYPE, integer, none, L"block measure", L"0", 5, 23)                                    \
    ROW(DOC_BLOCK_ENT_DEFAULT_TYPE, integer, none, L"block measure", L"0", 6, 24)                                \
    ROW(DOC_USE_OTHER_COLOR_TABLES, integer, none, L"block color", L"0", 5, 25)                                  \
    ROW(DOC_USE_GRAYSCALE_TABLES, integer, none, L"block color", L"0", 2, 26)                                    \
    ROW(DOC_USE_WHITESCALE_TABLES, integer, none, L"block color", L"0", 5, 27)                                   \
    ROW(DOC_AUTO_ORDER_TABLES, integer, none, L"table order", L"1", 3, 28)                                       \
    ROW(DOC_CROSSWALK_DEFAULT_TYPE, integer, none, L"crosswalk measure", L"0", 5, 11)

#define TRFC_SETTING_KEY(KEY, KIND, UNIT, SECTION, VALUE, SINCE, RANK) inline constexpr TrfcKey<TrfcSettingKind::KIND> KEY{L## #KEY};
TRFC_APP_SETTINGS(TRFC_SETTING_KEY)
TRFC_DOC_SETTINGS(TRFC_SETTING_KEY)
#undef TRFC_SETTING_KEY
// The working copy of USER_INTERFACE_TYPE, whose choice counts from the next start; never in a file.
inline constexpr TrfcTextKey USER_INTERFACE_TYPE_TEMP{L"USER_INTERFACE_TYPE_TEMP"};

// In the order of their files.
std::span<const TrfcSetting> trfcAppSettings();
std::span<const TrfcSetting> trfcDocSettings();
// The name in the exchange's table of settings: the key without its prefix.
const ACHAR* exchangeNameOf(const TrfcSetting& docSetting);
