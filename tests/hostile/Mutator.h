// Makes bad documents of good ones, always the same ones from the same seed.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace hostile
{

enum class MutationKind
{
    Bytes,      // anywhere, whatever stands there
    Tags,       // markup taken out, doubled, moved, nested
    Attributes, // names, values, quotation marks
    Encodings   // what the bytes stand for, and what they say that they stand for
};

// Mutants are cut at this length.
constexpr size_t LongestMutant = 64 * 1024;

class Mutator
{
public:
    explicit Mutator(uint64_t seed) : m_random(seed) {}

    // `document` with one to four changes of that kind; `other` is where parts may be taken from.
    std::string Mutate(MutationKind kind, std::string_view document, std::string_view other);

    size_t Below(size_t limit) { return limit == 0 ? 0 : static_cast<size_t>(m_random() % limit); }

private:
    void ChangeBytes(std::string& text, std::string_view other);
    void ChangeTags(std::string& text, std::string_view other);
    void ChangeAttributes(std::string& text);
    void ChangeEncoding(std::string& text);

    template <class Choice, size_t Count>
    const Choice& OneOf(const Choice (&choices)[Count])
    {
        return choices[Below(Count)];
    }

    std::mt19937_64 m_random;
};

} // namespace hostile
