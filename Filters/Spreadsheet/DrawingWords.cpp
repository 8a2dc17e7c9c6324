#include <Filters/Spreadsheet/DrawingWords.h>

#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>

namespace QV::Filters {
namespace {

FilterUtils::XMLVocabulary makeWords()
{
    return FilterUtils::XMLVocabulary(
        {
            makeXmlNamespace("a", Vocabulary::Drawing),
            makeXmlNamespace("c", Vocabulary::Chart),
            makeXmlNamespace("xdr", Vocabulary::SpreadsheetDrawing),
            makeXmlNamespace("r", Vocabulary::Relationships),
            makeXmlNamespace("mc", Vocabulary::MarkupCompatibility),
    },
        {
            {DrawingWords::AbsoluteAnchor, "xdr:absoluteAnchor"},
            {DrawingWords::OneCellAnchor, "xdr:oneCellAnchor"},
            {DrawingWords::TwoCellAnchor, "xdr:twoCellAnchor"},
            {DrawingWords::From, "xdr:from"},
            {DrawingWords::To, "xdr:to"},
            {DrawingWords::Position, "xdr:pos"},
            {DrawingWords::Extent, "xdr:ext"},
            {DrawingWords::Picture, "xdr:pic"},
            {DrawingWords::Shape, "xdr:sp"},
            {DrawingWords::Connector, "xdr:cxnSp"},
            {DrawingWords::Group, "xdr:grpSp"},
            {DrawingWords::GraphicFrame, "xdr:graphicFrame"},
            {DrawingWords::GraphicFrameTransform, "xdr:xfrm"},
            {DrawingWords::NonVisualProps, "xdr:cNvPr"},
            {DrawingWords::ShapeProps, "xdr:spPr"},
            {DrawingWords::GroupProps, "xdr:grpSpPr"},
            {DrawingWords::ShapeStyle, "xdr:style"},
            {DrawingWords::TextBody, "xdr:txBody"},
            {DrawingWords::Blip, "a:blip"},
            {DrawingWords::Chart, "c:chart"},
            {DrawingWords::Paragraph, "a:p"},
            {DrawingWords::Text, "a:t"},
            {DrawingWords::LineBreak, "a:br"},
            {DrawingWords::Choice, "mc:Choice"},
            {DrawingWords::Embed, "r:embed"},
            {DrawingWords::Link, "r:link"},
            {DrawingWords::Name, "name"},
            {DrawingWords::RelationshipId, "r:id"},
        });
}

} // namespace

const FilterUtils::XMLVocabulary& getDrawingWords()
{
    static const FilterUtils::XMLVocabulary words = makeWords();
    return words;
}

} // namespace QV::Filters
