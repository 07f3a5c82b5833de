#include "KivReader/humanoidprofile.h"

#include <algorithm>

#include "host/KivReader/humanoid/bodyfitting.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "host/KivReader/humanoid/recognition/recogniser.h"
#include "host/KivReader/humanoid/uprightaxis.h"

namespace KivReader {

namespace {

FileFrame frameAsAsked(const ProfileOptions& options)
{
    FileFrame frame;
    if (options.unit > 0.0)
        frame.unit = options.unit;
    frame.up = axisAsked(options.up).value_or(UpAxis::Y);
    return frame;
}

ProfiledFigure asItStands(const MotionDocument& document, const ProfileOptions& options, ProfileRecord record)
{
    const FileFrame frame = frameAsAsked(options);
    record.unit = options.unit > 0.0 ? "asked for" : "cm";
    record.centimetresPerUnit = frame.unit;
    record.unitReason = record.upReason = "the file is read as it stands";
    record.upAxis = nameOf(frame.up);
    return {makeFigure(document, frame), std::move(record)};
}

}  // namespace

ProfiledFigure makeProfiledFigure(const MotionDocument& document, const ProfileOptions& options)
{
    ProfileRecord record;
    if (options.use == ProfileOptions::Use::Off) {
        record.whyNot = "the profile is off";
        return asItStands(document, options, std::move(record));
    }
    const ProfileTable table = profileTableWith(options.tableFile);
    Recognition found = recognise(document, table);
    const JointMatching& matching = found.matching;
    record.dialect = matching.dialect;
    record.ambiguous = matching.ambiguous;
    record.isHumanoid = found.isHumanoid;
    record.whyNot = std::move(found.whyNot);
    record.confidence = found.confidence;
    record.evidence = std::move(found.evidence);
    if (!record.isHumanoid)
        return asItStands(document, options, std::move(record));
    record.warnings = matching.warnings;
    MotionFigure figure = fitBody({document, matching, table.figure}, options, record);
    return {std::move(figure), std::move(record)};
}

ProfileRecord profileMotion(const MotionDocument& document, const ProfileOptions& options)
{
    return makeProfiledFigure(document, options).record;
}

}  // namespace KivReader
