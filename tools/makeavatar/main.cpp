// makeavatar OUTPUT.ive — generates the avatar that ships with the player.
#include <exception>
#include <iostream>
#include <osgDB/WriteFile>
#include <string>

#include "tools/makeavatar/avatarcheck.h"
#include "tools/makeavatar/avatartree.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kMisused = 2;

int complain(int code, const std::string& reason)
{
    std::cerr << "makeavatar: " << reason << '\n';
    return code;
}

bool isIveFile(const std::string& name)
{
    return name.size() > 4 && name.compare(name.size() - 4, 4, ".ive") == 0;
}

int makeAvatar(const std::string& file)
{
    const std::vector<KivAvatarMaker::Piece> pieces = KivAvatarMaker::avatarPieces();
    const std::string fault = KivAvatarMaker::faultOf(pieces);
    if (!fault.empty())
        return complain(kFailed, fault);
    const osg::ref_ptr<osg::Group> avatar = KivAvatarMaker::makeAvatarTree(pieces);
    if (!osgDB::writeNodeFile(*avatar, file))
        return complain(kFailed, "cannot write " + file);
    return kDone;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return complain(kMisused, "one argument is needed: OUTPUT.ive");
    if (!isIveFile(argv[1]))
        return complain(kMisused, std::string("the output's name must end in .ive, not ") + argv[1]);
    try {
        return makeAvatar(argv[1]);
    } catch (const std::exception& fault) {
        return complain(kFailed, fault.what());
    }
}
