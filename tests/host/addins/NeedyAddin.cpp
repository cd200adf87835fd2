// An add-in that cannot be loaded, because a library that it needs is not found.
extern "C" __declspec(dllimport) int MissingPartValue();

extern "C" __declspec(dllexport) int AddInStart()
{
    return MissingPartValue() - 1;
}
