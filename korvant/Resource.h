// The numbers of every resource: dialogs, their controls and the texts of the string table. Scripts
// name controls by these numbers, so a number once given is never given to another control.
#pragma once

// ---- dialogs
#define IDD_SELECT_TABLE      103
#define IDD_BLOCK_PROPERTIES  144
#define IDD_EDIT_BLOCK_CHAIN  207
#define IDD_POST_PROPERTIES   210
#define IDD_EDIT_POST         211
#define IDD_ERROR             220
#define IDD_ABOUT             221
#define IDD_TASK_PROGRESS     222
#define IDD_CHECK_PROGRESS    224
#define IDD_TASK_REPORT       317
#define IDD_EDIT_BLOCK        341
#define IDD_STATE_CHANGE      343
#define IDD_SCALE_COMPARISON  364
#define IDD_EDIT_SCALE        366

// ---- controls that several dialogs share
#define IDC_PATH_TREE         201
#define IDC_ATTRIBUTE_LIST    204
#define IDC_TYPE_COMBO        212
#define IDC_PROPERTIES_TAB    215
#define IDC_PREVIEW           217
#define IDC_HELP_BUTTON       260
#define IDC_SELECT_BLOCK      342

// ---- block selection (103)
#define IDC_LIBRARY_TREE      300
#define IDC_LIBRARY_LIST      301

// ---- chain page (207)
#define IDC_CHAIN_UP          230
#define IDC_CHAIN_DOWN        231
#define IDC_CHAIN_ADD_TABLE   232
#define IDC_CHAIN_ADD_LAMP    234
#define IDC_CHAIN_DELETE      235
#define IDC_UNIQUE_SCALE      236
#define IDC_COMPLEMENTARY     237
#define IDC_UNIQUE_TABLE      238

// ---- post page (211)
#define IDC_FOLLOW_ROTATION   240

// ---- scale windows (364, 366)
#define IDC_SCALE_LIST        410
#define IDC_SCALE_NAME        411
#define IDC_SCALE_PAPER       412
#define IDC_SCALE_DRAWING     413
#define IDB_SCALE_ACTIVE      414
#define IDB_SCALE_INACTIVE    415

// ---- error window (220)
#define IDC_ERROR_TEXT        250

// ---- about window (221)
#define IDC_PRODUCT_NAME      252
#define IDC_VERSION           253

// ---- progress windows (222, 224, 317)
#define IDC_TASK_LIST         270
#define IDC_REPORT_LIST       271
#define IDC_SAVE_REPORT       272
#define IDC_SHOW_SELECTED     273
#define IDC_PROGRESS_BAR      279
#define IDC_PROGRESS_TEXT     280

// ---- state change (343); the last digit of a box is the row of its transition
#define IDC_SELECTION_ONLY    351
#define IDC_ALL_OBJECTS       352
#define IDC_CONFIRM_DELETE    353
#define IDC_DELETE_UNASKED    354
#define IDC_BUTT_ALL          355
#define IDC_BUTT_NON          356
#define IDC_POST_TO_EXISTING     361
#define IDC_POST_TO_BE_REMOVED   362
#define IDC_POST_DELETE          363
#define IDC_SIGN_TO_EXISTING     371
#define IDC_SIGN_TO_BE_REMOVED   372
#define IDC_SIGN_DELETE          373
#define IDC_SIGN_COVER           374
#define IDC_SIGN_UNCOVER         375
#define IDC_MARKING_TO_EXISTING     381
#define IDC_MARKING_TO_BE_REMOVED   382
#define IDC_MARKING_DELETE          383
#define IDC_CROSSING_TO_EXISTING    391
#define IDC_CROSSING_TO_BE_REMOVED  392
#define IDC_CROSSING_DELETE         393

// ---- pictures
#define IDB_TASK_MARKS        281
#define IDB_BUTT_ALL          355
#define IDB_BUTT_NON          356

// ---- cells that are edited in place (children of the list)
#define IDC_IN_PLACE          299

// ---- texts
#define IDS_DEFAULTS_SAVED    103
#define IDS_DEFAULTS_LOADED   104
#define IDS_INI_PATH_WRONG    105
#define IDS_PAGE_GENERAL      106
#define IDS_PAGE_LAMP         107
#define IDS_PAGE_TABLES       108
#define IDS_PROMPT_POINT_A    109
#define IDS_PROMPT_POINT_B    110
#define IDS_PROMPT_POINT_D    111
#define IDS_SETTINGS_FAULT    119
#define IDS_DEFAULTS_FAULT    120
#define IDS_COMPLEMENTARY     130
#define IDS_PROMPT_BLOCK      132
#define IDS_PROMPT_BLOCK_TURN 133
#define IDS_PAGE_BLOCK        143
#define IDS_PAGE_CROSSWALK    145
#define IDS_PAGE_POST_1       148
#define IDS_PAGE_POST_2       149
