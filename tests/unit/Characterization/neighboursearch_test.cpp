#include "KivCharacterization/Characterization/neighboursearch.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace KivCharacterization {

namespace {

using Numbers = std::map<std::string, int>;

TEST(ANeighbourSearch, findsNothingInAnEmptyMap)
{
    const Numbers none;
    NeighbourSearch<Numbers> search(none);
    EXPECT_EQ(search.find(""), nullptr);
    EXPECT_EQ(search.find("Hips"), nullptr);
}

TEST(ANeighbourSearch, missesKeysBeforeBetweenAndBehindTheOthers)
{
    const Numbers numbers{{"b", 1}, {"d", 2}};
    NeighbourSearch<Numbers> search(numbers);
    for (const char* key : {"z", "c", "a", "", "c", "z"}) {
        EXPECT_EQ(search.find(key), nullptr) << key;
    }
}

TEST(ANeighbourSearch, findsTheSameKeyTwice)
{
    const Numbers numbers{{"a", 1}, {"b", 2}};
    NeighbourSearch<Numbers> search(numbers);
    EXPECT_EQ(search.find("b"), &numbers.at("b"));
    EXPECT_EQ(search.find("b"), &numbers.at("b"));
}

TEST(ANeighbourSearch, findsWhatTheMapFindsInWhateverOrderItIsAsked)
{
    Numbers numbers;
    for (int i = 0; i < 60; i += 2) {
        numbers[std::string(1, static_cast<char>('A' + i % 26)) + std::to_string(i)] = i;
    }
    std::vector<std::string> keys{"", "A", "~"};
    for (int i = 0; i < 60; ++i) {
        keys.push_back(std::string(1, static_cast<char>('A' + i % 26)) + std::to_string(i));
    }
    NeighbourSearch<Numbers> search(numbers);
    std::mt19937 random(20);
    for (int i = 0; i < 5000; ++i) {
        const std::string& key = keys[random() % keys.size()];
        const auto expected = numbers.find(key);
        ASSERT_EQ(search.find(key), expected != numbers.end() ? &expected->second : nullptr) << key;
    }
}

}  // namespace

}  // namespace KivCharacterization
