#pragma once

#define IDR_MENUS 200

#define IDD_PARTS 100
#define IDC_PARTS 101
