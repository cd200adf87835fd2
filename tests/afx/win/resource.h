// Numbers of the tests' resources.
#pragma once

#define IDD_PLAIN 100
#define IDD_EXCHANGE 101
#define IDD_PLACED 102
#define IDC_NAME 1001
#define IDC_NUMBER 1002
#define IDC_CHECK 1003
#define IDC_FIRST_RADIO 1004
#define IDC_SECOND_RADIO 1005
#define IDC_THIRD_RADIO 1006
#define IDC_LIST 1007
#define IDC_COMBO 1008
#define IDC_AFTER_GROUP 1009
#define IDR_MENU 110
#define IDS_GREETING 120
#define IDS_TWO_PLACES 121
#define IDB_PIXELS 130
#define IDR_FRAME 140
#define ID_TEST_ONE 0x8001
#define ID_TEST_TWO 0x8002
#define ID_TEST_THREE 0x8003

// In AfxExtensionOne.dll alone.
#define IDD_EXTENSION 4711
