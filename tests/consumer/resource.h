#define IDR_MENUS 200
#define IDD_PARTS 201
#define IDC_PARTS 202
