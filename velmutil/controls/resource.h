// Numbers of the library's resources.
#pragma once

#define IDD_PROGRESS 300
#define IDC_PROGRESS_STATUS 700
#define IDC_PROGRESS_BAR 701
