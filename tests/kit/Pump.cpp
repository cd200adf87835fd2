#include "kit/Pump.h"

#include "kit/Program.h"

#include <algorithm>

namespace testkit
{

bool PumpUntil(const std::function<bool()>& predicate, unsigned milliseconds)
{
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (;;) {
        if (predicate()) {
            return true;
        }
        const ULONGLONG now = GetTickCount64();
        if (now >= end) {
            return false;
        }
        MSG message;
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<int>(message.wParam));
                return predicate();
            }
            HandleMessage(message);
        } else {
            // Not for longer than a moment: what is waited for may also come from another thread.
            const auto wait = static_cast<DWORD>(std::min<ULONGLONG>(end - now, 20));
            MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        }
    }
}

bool PumpPending()
{
    MSG message;
    for (int count = 0; count < 10000; ++count) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            return true;
        }
        if (message.message != WM_QUIT) {
            HandleMessage(message);
        }
    }
    return false;
}

} // namespace testkit
