#pragma once

#define IDR_OFFICE 200
