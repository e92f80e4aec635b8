// Makes the table of pinyin initials from Unihan_Readings.txt of the Unicode character database: for each character of
// a block a set of letters, bit 0 for A. The readings are those of Mandarin (kMandarin) and the frequent ones of
// modern Chinese (kHanyuPinlu, kTGHZ2013), because a name may use any of them.
#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

namespace {

constexpr unsigned First = 0x3400;
constexpr unsigned Last = 0x9FFF;

using Table = std::array<std::uint32_t, Last - First + 1>;

struct Initial {
    const char* start;
    char letter;
};

/// The letters that are not ASCII with which a syllable begins.
constexpr Initial Accented[] = {
    { "ā", 'a' },
    { "á", 'a' },
    { "ǎ", 'a' },
    { "à", 'a' },
    { "ē", 'e' },
    { "é", 'e' },
    { "ě", 'e' },
    { "è", 'e' },
    { "ō", 'o' },
    { "ó", 'o' },
    { "ǒ", 'o' },
    { "ò", 'o' },
    { "ń", 'n' },
    { "ň", 'n' },
    { "ǹ", 'n' },
    { "ḿ", 'm' },
};

/// The letter with which a syllable begins; 0 if there is none.
char initialOf(const std::string& syllable)
{
    if (!syllable.empty() && syllable.front() >= 'a' && syllable.front() <= 'z')
        return syllable.front();
    for (const Initial& accented : Accented) {
        if (syllable.rfind(accented.start, 0) == 0)
            return accented.letter;
    }
    return 0;
}

void addReadings(const std::string& readings, std::uint32_t& letters)
{
    std::string syllable;
    std::istringstream words(readings);
    // "436.040:háng,xìng 436.041:xíng" as well as "xíng(2943) háng(218)".
    while (words >> syllable) {
        std::istringstream parts(syllable.substr(syllable.find(':') + 1));
        for (std::string part; std::getline(parts, part, ',');) {
            if (const char letter = initialOf(part))
                letters |= 1U << static_cast<unsigned>(letter - 'a');
        }
    }
}

bool read(std::istream& file, Table& table)
{
    bool found = false;
    for (std::string line; std::getline(file, line);) {
        std::istringstream cells(line);
        std::string code;
        std::string field;
        if (!(cells >> code >> field) || code.rfind("U+", 0) != 0)
            continue;
        const unsigned long character = std::stoul(code.substr(2), nullptr, 16);
        const bool isReading = field == "kMandarin" || field == "kHanyuPinlu" || field == "kTGHZ2013";
        if (!isReading || character < First || character > Last)
            continue;
        std::string readings;
        std::getline(cells, readings);
        addReadings(readings, table.at(character - First));
        found = true;
    }
    return found;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    std::ifstream readings(argv[1]);
    static Table table{};
    if (!read(readings, table)) {
        std::cerr << argv[1] << " has no readings\n";
        return EXIT_FAILURE;
    }
    std::ofstream source(argv[2]);
    source << "// Made from the Unicode character database.\n"
           << "constexpr unsigned FirstCharacter = " << First << ";\n"
           << "constexpr std::array<quint32, " << table.size() << "> Letters{\n";
    for (const std::uint32_t letters : table)
        source << letters << ",\n";
    source << "};\n";
    return source.good() ? EXIT_SUCCESS : EXIT_FAILURE;
}
