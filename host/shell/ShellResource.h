// Resource numbers of the host program.
#pragma once

#define IDR_HOST 1
