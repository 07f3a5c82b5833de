// worstpixel ONE.png OTHER.png: prints the largest difference of a channel of a pixel, 0..255.
#include <iostream>

#include "apps/kivplayer/output/picturefile.h"

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const osg::ref_ptr<osg::Image> one = KivPlayer::readPicture(argv[1]);
    const osg::ref_ptr<osg::Image> other = KivPlayer::readPicture(argv[2]);
    if (!one || !other)
        return 2;
    const KivPlayer::PictureDifference difference = KivPlayer::comparePictures(*one, *other);
    if (!difference.sameSize)
        return 1;
    std::cout << difference.worstPixel << std::endl;
    return 0;
}
