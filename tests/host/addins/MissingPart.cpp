// A library that lies where no loader looks, for an add-in that needs it.
extern "C" __declspec(dllexport) int MissingPartValue()
{
    return 1;
}
