// One whole life of each class: made, used in every way that takes something, and ended.
#pragma once

#include <VelmUtil22.h>

#include <vector>

#include <gtest/gtest.h>

namespace lifecycle
{

struct Life
{
    const char* name; // letters only: it becomes the name of a test
    void (*once)();   // fails the test where the life does not go as it should
    // How many XML declarations it lets the document model make: CXMLFile::LoadFile makes one.
    int declarations = 0;
};

std::vector<Life> ControlLives();
std::vector<Life> CreditsLives();
std::vector<Life> DocumentLives();
std::vector<Life> HelperLives();
std::vector<Life> BuilderLives();

} // namespace lifecycle
