#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "KivReader/motiondocument.h"
#include "tests/host/KivReader/motiontext.h"

namespace KivReaderTest {

inline KivReader::MotionDocument accepted(const std::string& text)
{
    KivReader::MotionReading reading = KivReader::readMotionDocument(text);
    EXPECT_TRUE(reading.document.has_value()) << reading.error.text();
    return reading.document ? std::move(*reading.document) : KivReader::MotionDocument();
}

/// The plain motion with one part of its text replaced.
inline KivReader::MotionDocument acceptedWith(std::string MotionText::*part, const std::string& text)
{
    MotionText parts;
    parts.*part = text;
    return accepted(parts.text());
}

}  // namespace KivReaderTest
