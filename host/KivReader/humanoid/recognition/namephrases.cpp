#include "host/KivReader/humanoid/recognition/namephrases.h"

#include <algorithm>

#include "host/KivReader/humanoid/recognition/nameletters.h"

namespace KivReader {

namespace {

constexpr std::size_t kWordsOfAPhrase = 3;
constexpr std::size_t kLongGluedSide = 4;  ///< letters: shorter ones stand behind a part by chance
constexpr std::size_t kLongestGlued = 32;  ///< letters
constexpr double kPerUnknownWord = 0.25;
constexpr int kLargestNumber = 9999;

bool isIdeographic(const std::string& word)
{
    const std::vector<char32_t> letters = lettersOf(word);
    return !letters.empty() && isIdeograph(letters.front());
}

/// The longest run of words from here on that the vocabulary knows as one.
const WordMeaning* phraseAt(const std::vector<std::string>& words, std::size_t first,
                            const Vocabulary& vocabulary, std::size_t& count, std::string& phrase)
{
    const WordMeaning* found = nullptr;
    std::string joined;
    for (std::size_t i = first; i < words.size() && i < first + kWordsOfAPhrase; ++i) {
        joined += words[i];
        if (isNumber(words[i]) || joined.size() > vocabulary.longestWord())
            break;
        if (const WordMeaning* meaning = vocabulary.find(joined)) {
            found = meaning;
            count = i - first + 1;
            phrase = joined;
        }
    }
    return found;
}

/// Cuts a word of a script without separators into the longest words that are known.
std::vector<std::string> cut(const std::string& word, const Vocabulary& vocabulary)
{
    std::vector<std::string> parts;
    const std::vector<char32_t> letters = lettersOf(word);
    for (std::size_t i = 0; i < letters.size();) {
        std::size_t length = std::min<std::size_t>(letters.size() - i, 8);
        const auto piece = [&] {
            const auto begin = letters.begin() + static_cast<std::ptrdiff_t>(i);
            return utf8From({begin, begin + static_cast<std::ptrdiff_t>(length)});
        };
        while (length > 1 && vocabulary.find(piece()) == nullptr)
            --length;
        parts.push_back(piece());
        i += length;
    }
    return parts;
}

class Understanding
{
public:
    explicit Understanding(const Vocabulary& vocabulary) : m_vocabulary(vocabulary) {}

    NameHint of(const std::vector<std::string>& words)
    {
        for (std::size_t i = 0; i < words.size();) {
            std::size_t count = 1;
            std::string phrase;
            if (isNumber(words[i]))
                m_hint.numbers.push_back(std::min(std::stoi(words[i].substr(0, 4)), kLargestNumber));
            else if (const WordMeaning* meaning = phraseAt(words, i, m_vocabulary, count, phrase))
                take(*meaning, phrase);
            else
                ++m_unknown;
            i += count;
        }
        m_hint.weight = 1.0 / (1.0 + kPerUnknownWord * m_unknown);
        return std::move(m_hint);
    }

private:
    void take(const WordMeaning& meaning, const std::string& phrase)
    {
        m_hint.isPalm = m_hint.isPalm || meaning.isPalm;
        m_hint.isTip = m_hint.isTip || meaning.isTip;
        m_hint.isNever = m_hint.isNever || meaning.isNever;
        m_hint.isBeast = m_hint.isBeast || meaning.isBeast;
        if (meaning.finger != WordMeaning::kNoFinger && m_hint.finger != meaning.finger &&
            (m_hint.finger == WordMeaning::kNoFinger || meaning.finger != WordMeaning::kAnyFinger))
            m_hint.finger = meaning.finger;
        if ((meaning.parts | meaning.perhaps) == 0)
            return;
        const Parts both = (m_hint.parts | m_hint.perhaps) & (meaning.parts | meaning.perhaps);
        m_hint.parts = both != 0 ? m_hint.parts & both : meaning.parts;
        m_hint.perhaps = both != 0 ? m_hint.perhaps & both : meaning.perhaps;
        if (both != 0 && (meaning.parts & both) != 0)
            m_hint.parts |= meaning.parts & both;
        m_hint.word = phrase;
    }

    const Vocabulary& m_vocabulary;
    NameHint m_hint;
    int m_unknown = 0;
};

class SideReader
{
public:
    SideReader(const std::vector<std::string>& words, const Vocabulary& vocabulary)
        : m_words(words), m_vocabulary(vocabulary)
    {}

    std::vector<SidedName> readings()
    {
        for (std::size_t i = 0; i < m_words.size(); ++i) {
            const WordMeaning* meaning = m_vocabulary.find(m_words[i]);
            if (meaning != nullptr && meaning->side != Side::None)
                add(i, {}, meaning->side);
        }
        for (std::size_t i = 0; i < m_words.size() && m_readings.empty(); ++i) {
            if (!isNumber(m_words[i]))
                readGlued(i);
        }
        return std::move(m_readings);
    }

private:
    void add(std::size_t word, const std::string& rest, Side side)
    {
        SidedName name;
        name.side = side;
        name.words = m_words;
        if (rest.empty())
            name.words.erase(name.words.begin() + static_cast<std::ptrdiff_t>(word));
        else
            name.words[word] = rest;
        for (const std::string& kept : name.words)
            name.key += isNumber(kept) ? "" : kept + " ";
        m_readings.push_back(std::move(name));
    }

    bool isPart(std::size_t word, const std::string& rest) const
    {
        std::vector<std::string> words = m_words;
        words[word] = rest;
        std::size_t count = 0;
        std::string phrase;
        const WordMeaning* meaning = phraseAt(words, word, m_vocabulary, count, phrase);
        return meaning != nullptr &&
               ((meaning->parts | meaning->perhaps) != 0 || meaning->finger != WordMeaning::kNoFinger);
    }

    void readGlued(std::size_t word)
    {
        const std::vector<char32_t> letters = lettersOf(m_words[word]);
        if (letters.size() > kLongestGlued)
            return;
        const bool isIdeographs = isIdeographic(m_words[word]);
        for (std::size_t length = 1; length < letters.size(); ++length) {
            const auto at = letters.begin() + static_cast<std::ptrdiff_t>(length);
            const std::string front = utf8From({letters.begin(), at});
            const std::string behind = utf8From({at, letters.end()});
            tryGlued(word, front, behind, isIdeographs);
            if (letters.size() - length >= kLongGluedSide || isIdeographs)
                tryGlued(word, behind, front, isIdeographs);
        }
    }

    void tryGlued(std::size_t word, const std::string& side, const std::string& rest, bool anyRest)
    {
        const WordMeaning* meaning = m_vocabulary.find(side);
        if (meaning != nullptr && meaning->side != Side::None && (anyRest || isPart(word, rest)))
            add(word, rest, meaning->side);
    }

    const std::vector<std::string>& m_words;
    const Vocabulary& m_vocabulary;
    std::vector<SidedName> m_readings;
};

}  // namespace

std::vector<SidedName> sidedReadings(const std::vector<std::string>& words, const Vocabulary& vocabulary)
{
    return SideReader(words, vocabulary).readings();
}

NameHint understood(const std::vector<std::string>& words, const Vocabulary& vocabulary)
{
    std::vector<std::string> pieces;
    for (const std::string& word : words) {
        if (!isIdeographic(word)) {
            pieces.push_back(word);
            continue;
        }
        const std::vector<std::string> parts = cut(word, vocabulary);
        pieces.insert(pieces.end(), parts.begin(), parts.end());
    }
    return Understanding(vocabulary).of(pieces);
}

}  // namespace KivReader
