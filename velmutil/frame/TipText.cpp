#include "frame/TipText.h"

namespace
{

constexpr int TipCapacity = 80;

} // namespace

void PutTipText(NMHDR* notification, const CString& text)
{
    if (notification->code != TTN_NEEDTEXTA) {
        lstrcpynW(reinterpret_cast<TOOLTIPTEXTW*>(notification)->szText, text, TipCapacity);
        return;
    }
    // A code page may need more than one byte for a character: no character is halved by the cut.
    char* const tip = reinterpret_cast<TOOLTIPTEXTA*>(notification)->szText;
    for (int length = text.GetLength() < TipCapacity ? text.GetLength() : TipCapacity - 1; length >= 0;
         --length) {
        const int bytes = length == 0 ? 0
                                      : WideCharToMultiByte(CP_THREAD_ACP, 0, text, length, tip,
                                                            TipCapacity - 1, nullptr, nullptr);
        if (bytes > 0 || length == 0) {
            tip[bytes] = '\0';
            return;
        }
    }
}
