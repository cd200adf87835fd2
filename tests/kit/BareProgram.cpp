#include "kit/Program.h"

namespace testkit
{

bool StartProgram()
{
    return true;
}

void HandleMessage(MSG& message)
{
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void DropTemporaries() {}

void WarmUpProgram() {}

} // namespace testkit
