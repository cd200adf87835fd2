// Numbers of the program's resources.
#pragma once

#define IDR_FAILING_MENUS 400
