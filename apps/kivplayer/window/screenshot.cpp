#include "apps/kivplayer/window/screenshot.h"

#include <algorithm>
#include <filesystem>

#include "apps/kivplayer/output/picturefile.h"

namespace KivPlayer {

namespace {

std::string unusedPictureName()
{
    std::error_code problem;
    for (int i = 1;; ++i) {
        const std::string digits = std::to_string(i);
        const std::string name =
            "kivplayer-" + std::string(4 - std::min<std::size_t>(4, digits.size()), '0') + digits + ".png";
        if (!std::filesystem::exists(name, problem))
            return name;
    }
}

}  // namespace

Screenshot::Written Screenshot::take(const osg::Image& frame)
{
    const osg::ref_ptr<osg::Image> picture = m_sampler.isBusy() ? m_sampler.take(frame) : nullptr;
    if (!picture)
        return {};
    const std::string name = unusedPictureName();
    const std::string problem = writePicture(*picture, name);
    if (problem.empty())
        m_files.push_back(name);
    return {name, problem};
}

}  // namespace KivPlayer
