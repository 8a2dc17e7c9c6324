#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/ShapeProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/SlideText.h>
#include <Filters/Presentation/SlideTextValues.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

constexpr float BodyInsetMax = 169093.2F; // ECMA-376 Part 1, 20.1.10.19: 32 bits of EMU
constexpr unsigned long BodyColumnsMax = 16;

// ECMA-376 Part 1, 20.1.10.59.
constexpr SlideTextName<DOM::VerticalAlignment> BodyAnchors[] = {
    {"t",    DOM::VerticalAlignment::Top        },
    {"ctr",  DOM::VerticalAlignment::Center     },
    {"b",    DOM::VerticalAlignment::Bottom     },
    {"just", DOM::VerticalAlignment::Justify    },
    {"dist", DOM::VerticalAlignment::Distributed},
};

constexpr SlideTextName<bool> BodyWraps[] = {
    {"square", true },
    {"none",   false},
};

// ECMA-376 Part 1, 20.1.10.82.
constexpr SlideTextName<DOM::TextDirection> BodyDirections[] = {
    {"horz",           DOM::TextDirection::Horizontal      },
    {"vert",           DOM::TextDirection::Clockwise       },
    {"vert270",        DOM::TextDirection::CounterClockwise},
    {"wordArtVert",    DOM::TextDirection::Stacked         },
    {"wordArtVertRtl", DOM::TextDirection::Stacked         },
    {"eaVert",         DOM::TextDirection::EastAsian       },
    {"mongolianVert",  DOM::TextDirection::EastAsian       },
};

boost::optional<DOM::TextFit> readTextFit(const XMLElement& bodyProperties, OperationReport& report)
{
    boost::optional<DOM::TextFit> fit;
    forEachDrawingElement(
        bodyProperties, Vocabulary::Drawing, [&](const std::string& name, const XMLElement& child) {
            DOM::TextFit read;
            if (name == "normAutofit") {
                constexpr float ScaleMin = 0.01F;
                const auto share = [&](const char* attribute, float min) {
                    return SlideTextAttribute(child, attribute, report).readShare(min, 1);
                };
                read.kind = DOM::TextFit::Kind::ShrinkText;
                read.fontScale = share("fontScale", ScaleMin).value_or(1);
                read.lineSpacingReduction = share("lnSpcReduction", 0).value_or(0);
            } else if (name == "spAutoFit") {
                read.kind = DOM::TextFit::Kind::GrowShape;
            } else if (name != "noAutofit") {
                return;
            }
            fit = read;
        });
    return fit;
}

} // namespace

void readTextBodyProps(const XMLElement& bodyProperties, DOM::ShapeProps& props, OperationReport& report)
{
    const auto attribute = [&](const char* name) { return SlideTextAttribute(bodyProperties, name, report); };
    DOM::ShapeProps read;
    read.setTextLeftInset(attribute("lIns").readLength(BodyInsetMax));
    read.setTextTopInset(attribute("tIns").readLength(BodyInsetMax));
    read.setTextRightInset(attribute("rIns").readLength(BodyInsetMax));
    read.setTextBottomInset(attribute("bIns").readLength(BodyInsetMax));
    read.setTextAlignment(attribute("anchor").readName(BodyAnchors));
    read.setTextCentered(attribute("anchorCtr").readFlag());
    read.setTextWrapping(attribute("wrap").readName(BodyWraps));
    read.setTextDirection(attribute("vert").readName(BodyDirections));
    if (const auto columns = attribute("numCol").readNumber(1, BodyColumnsMax))
        read.setTextColumns(static_cast<unsigned>(*columns));
    read.setTextFit(readTextFit(bodyProperties, report));
    DOM::override(props, read);
}

} // namespace QV::Filters
