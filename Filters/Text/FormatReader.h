#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TrackedChange.h>
#include <FilterUtils/FU_Lengths.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Text/FormatValues.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Colors;
class MessageCounts;
class Names;
class TextTheme;

/// What an "rPr" element says.
struct RunFormat
{
    std::string styleId;                        ///< of a character style; empty for none
    std::shared_ptr<const DOM::RunProps> props; ///< null where nothing is set
    std::shared_ptr<const RunFormat> before;    ///< before a tracked change of the format; null for none
    std::shared_ptr<const DOM::TrackedChange> change; ///< of a paragraph's mark; null for none
};

/// What a "numPr" element says.
struct NumberingRequest
{
    boost::optional<std::string> id; ///< "0" takes numbering away
    boost::optional<unsigned long> level;
};

/// What a "pPr" element says.
struct ParaFormat
{
    std::string styleId;                         ///< empty for none
    std::shared_ptr<const DOM::ParaProps> props; ///< null where nothing is set
    boost::optional<NumberingRequest> numbering;
    RunFormat mark;
    bool hasTabLeaders = false;               ///< of dots or lines, which the model does not have
    std::shared_ptr<const ParaFormat> before; ///< before a tracked change of the format; null for none
};

/// Reads properties of runs and paragraphs, in a document or in its styles. What cannot be read is reported,
/// as FormatValues says, and stays unset; tab stops beyond 64 of one paragraph are left out with the message
/// "Tab stops beyond {} are left out", and names of fonts end after 1,024 bytes with the message "Name of a
/// font is cut at {} bytes". References live as long as the reader.
class FILTERS_API FormatReader
{
public:
    /// See FormatValues.
    FormatReader(const Names& names, const Colors& colors, const TextTheme& theme, OperationReport& report,
        MessageCounts* messages = nullptr, const FilterUtils::XMLElement& root = {})
        : _values(names, colors, theme, report, messages, root)
    {
    }

    /// An invalid view gives an empty format.
    RunFormat readRun(const FilterUtils::XMLElement& runProps) const;
    ParaFormat readPara(const FilterUtils::XMLElement& paragraphProps) const;

    const FormatValues& getValues() const { return _values; }

private:
    RunFormat readRunProps(const FilterUtils::XMLElement& runProps) const;
    ParaFormat readParaProps(const FilterUtils::XMLElement& paragraphProps) const;

    FormatValues _values;
};

} // namespace QV::Filters
