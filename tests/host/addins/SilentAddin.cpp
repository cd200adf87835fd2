// An add-in without start and stop.
extern "C" __declspec(dllexport) int SilentAddinIsHere()
{
    return 1;
}
