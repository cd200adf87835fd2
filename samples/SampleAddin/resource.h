// Numbers of the add-in's resources.
#pragma once

#define IDR_DESCRIPTION 101
