#include <Filters/Text/TextSections.h>

#include <cmath>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Document.h>
#include <FilterUtils/FU_HeadersFootersFactory.h>
#include <FilterUtils/FU_Lengths.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Text/HeaderTabs.h>
#include <Filters/Text/PropertyText.h>
#include <Filters/Text/StoryReader.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextLeftOut.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/Unit.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// A negative margin above or below the text keeps headers and footers from moving it (ECMA-376 Part
/// 1, 17.6.11).
UnitOpt getMagnitude(const UnitOpt& points)
{
    return points ? UnitOpt(std::fabs(*points)) : UnitOpt();
}

std::shared_ptr<DOM::Insets> readPageMargins(const XMLElement& margins, const FormatValues& values)
{
    if (!margins.isValid())
        return nullptr;
    const auto read = [&](const char* side) { return values.readMeasure(values.attribute(margins, side)); };
    auto insets = std::make_shared<DOM::Insets>();
    UnitOpt left = read("left");
    if (const UnitOpt gutter = read("gutter"))
        left = left.value_or(0) + *gutter;
    insets->setLeft(left);
    insets->setTop(getMagnitude(read("top")));
    insets->setRight(read("right"));
    insets->setBottom(getMagnitude(read("bottom")));
    return insets;
}

} // namespace

TextSections::TextSections(
    TextContext& context, TextFormats& formats, const Relationships& relationships, bool hasEvenPages)
    : _context(context)
    , _formats(formats)
    , _relationships(relationships)
    , _hasEvenPages(hasEvenPages)
    , _names(Dialect::Transitional)
    , _values(_names, context.colors, context.theme, context.getReport(), &context.messages)
{
}

void TextSections::noteSection(const std::string& text)
{
    if (_sections.size() == SectionsMax) {
        if (_begin < _blocksCount && !_hasTooMany)
            _values.report("Sections beyond {} are left out", std::to_string(SectionsMax));
        _hasTooMany = _hasTooMany || _begin < _blocksCount;
        _begin = _blocksCount;
        return;
    }
    if (_begin == _blocksCount && !_sections.empty())
        return; // a section without blocks has no pages
    _sections.emplace_back(text, _begin);
    _begin = _blocksCount;
}

void TextSections::finish()
{
    if (_begin < _blocksCount || _sections.empty())
        noteSection({});
    for (const auto& [text, firstBlock] : _sections)
        appendSection(text, firstBlock);
    _sections.clear();
}

void TextSections::appendSection(const std::string& text, std::size_t firstBlock)
{
    const XMLElement props = parsePropertyText(text);
    noteLeftOut(props);
    readReferences(props, "header", "headerReference", &PartsOfPages::header);
    readReferences(props, "footer", "footerReference", &PartsOfPages::footer);
    const std::shared_ptr<DOM::PageProps> pages = makePageProps(props);
    DOM::Section section{DOM::BlockPosition(firstBlock)};
    section.setPageProps(pages);
    section.setDefaultPair(makePair(DefaultPages, pages));
    if (_values.readSwitch(props, "titlePg").value_or(false))
        section.setFirstPair(makePair(FirstPages, pages));
    if (_hasEvenPages)
        section.setEvenPair(makePair(EvenPages, pages));
    _context.run.getDocument().appendSection(std::move(section));
}

std::shared_ptr<DOM::PageProps> TextSections::makePageProps(const XMLElement& props) const
{
    const XMLElement size = _values.find(props, "pgSz");
    const XMLElement margins = _values.find(props, "pgMar");
    if (!size.isValid() && !margins.isValid())
        return nullptr;
    const auto read = [&](const XMLElement& element, const char* name) {
        return _values.readMeasure(_values.attribute(element, name), FilterUtils::nonNegativeLength);
    };
    auto pages = std::make_shared<DOM::PageProps>();
    pages->setWidth(read(size, "w"));
    pages->setHeight(read(size, "h"));
    pages->setMargins(readPageMargins(margins, _values));
    pages->setHeaderDistance(read(margins, "header"));
    pages->setFooterDistance(read(margins, "footer"));
    return pages;
}

void TextSections::noteLeftOut(const XMLElement& props)
{
    const auto kind = _values.value(props, "type").text;
    const auto count = _values.readWhole(_values.attribute(_values.find(props, "cols"), "num"), 0, 100);
    if ((kind && *kind != "nextPage") || (count && *count > 1))
        _context.run.leaveOut(TextLeftOut::Columns);
}

void TextSections::readReferences(
    const XMLElement& props, const char* family, const char* element, std::string PartsOfPages::*part)
{
    static constexpr FormatName<PageKind> Kinds[] = {
        {"default", DefaultPages},
        {"first",   FirstPages  },
        {"even",    EvenPages   },
    };
    props.processElements(_names(Vocabulary::WordProcessing, element), [&](const XMLElement& reference) {
        const std::string id =
            reference.getAttributeValue(_names(Vocabulary::Relationships, "id")).value_or("");
        const Relationship* const target = _relationships.findById(id);
        const auto kind = _values.readName(Kinds, _values.attribute(reference, "type"));
        if (target && !target->isExternal && target->isType(family))
            _parts[kind.value_or(DefaultPages)].*part = target->target;
        else
            _values.report("Header or footer {} is not there", id);
    });
}

/// Pages that have a pair of their own show nothing where it has no parts.
std::shared_ptr<DOM::HeaderFooterPair> TextSections::makePair(
    PageKind kind, const std::shared_ptr<DOM::PageProps>& pages)
{
    const auto isEmpty = [](const PartsOfPages& parts) {
        return parts.header.empty() && parts.footer.empty();
    };
    const PartsOfPages& parts = _parts[kind];
    if (isEmpty(parts) && isEmpty(_parts[DefaultPages]))
        return nullptr;
    std::shared_ptr<DOM::HeaderFooterPair> pair = _context.headersFooters.makeHeaderFooterPair();
    pair->setPageProps(pages);
    pair->setHeader(readPart(parts.header, *pair));
    pair->setFooter(readPart(parts.footer, *pair));
    return pair;
}

DOM::SharedCellText TextSections::readPart(const std::string& part, const DOM::HeaderFooterPair& pair)
{
    if (part.empty())
        return nullptr;
    const auto known = _stories.find(part);
    if (known != _stories.end())
        return known->second;
    HeaderTabs tabs(_context, pair);
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    StorySink sink;
    sink.takeBlock = [&](std::unique_ptr<DOM::Block> block) {
        tabs.align(*block);
        blocks.push_back(std::move(block));
    };
    const Relationships relationships = Relationships::read(_context.package, part, _context.getReport());
    readStory(_context, _formats, part, relationships, sink);
    return _stories.emplace(part, new DOM::CellText(std::move(blocks))).first->second;
}

} // namespace QV::Filters
