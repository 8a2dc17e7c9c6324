#include <Filters/Text/StoryFields.h>

#include <utility>

#include <DOM/Public/Hyperlink.h>
#include <Filters/Package/Utf8Cut.h>
#include <Filters/Text/ContentsField.h>
#include <Filters/Text/TextContext.h>

namespace QV::Filters {
namespace {

/// An instruction as a message shows it.
std::string shortenInstruction(std::string instruction)
{
    constexpr std::size_t BytesMax = 200;
    const std::size_t begin = instruction.find_first_not_of(' ');
    instruction.erase(0, begin);
    instruction.erase(instruction.find_last_not_of(' ') + 1);
    if (cutUtf8(instruction, BytesMax))
        instruction += "...";
    return instruction;
}

/// What a field shows that has no result: the text of a button, or a character.
std::string makeFieldResult(const std::string& instruction)
{
    const std::string name = getFieldName(instruction);
    constexpr std::size_t TextOfButton = 2; // behind the name and the macro or place
    if (name == "MACROBUTTON" || name == "GOTOBUTTON")
        return joinFieldWords(instruction, TextOfButton);
    return readFieldSymbol(instruction);
}

} // namespace

StoryFields::StoryFields(TextContext& context, StoryRuns& runs, Listener listener)
    : _context(context)
    , _runs(runs)
    , _listener(std::move(listener))
{
}

void StoryFields::begin()
{
    if (_fields.size() < DepthMax) {
        _fields.emplace_back();
        return;
    }
    _context.report("Fields within more than {} others are kept as text", std::to_string(DepthMax - 1));
    _passedOver.push_back(false);
}

void StoryFields::separate()
{
    if (_passedOver.empty() && !_fields.empty() && !_fields.back().hasResult)
        beginResult(_fields.back());
}

void StoryFields::end()
{
    if (!_passedOver.empty()) {
        if (!_passedOver.back())
            _passedOver.pop_back();
        return;
    }
    if (!_fields.empty() && !_fields.back().isSimple)
        closeTop();
}

void StoryFields::beginSimple(const std::string& instruction)
{
    begin();
    if (!_passedOver.empty()) {
        _passedOver.back() = true;
        ++_simplePassedOver;
        return;
    }
    _fields.back().isSimple = true;
    append(_fields.back(), instruction);
    beginResult(_fields.back());
}

void StoryFields::endSimple()
{
    if (_simplePassedOver != 0) {
        while (!_passedOver.back())
            _passedOver.pop_back();
        _passedOver.pop_back();
        --_simplePassedOver;
        return;
    }
    _passedOver.clear();
    while (!_fields.empty() && !_fields.back().isSimple) {
        reportOpen(_fields.back());
        closeTop();
    }
    if (!_fields.empty())
        closeTop();
}

void StoryFields::addInstruction(const std::string& text)
{
    if (!_passedOver.empty())
        return;
    if (Field* const field = findInstruction(_fields.size()))
        append(*field, text);
    else
        _context.report("Instruction {} is in no field", shortenInstruction(text));
}

bool StoryFields::takeText(const std::string& text)
{
    // Without an end in sight, a field would take the rest of the story.
    Field* const field = _fields.empty() ? nullptr : findInstruction(_fields.size() - 1);
    if (!field || !_fields.back().hasResult || field->instruction.size() + text.size() > InstructionBytesMax)
        return false;
    append(*field, text);
    field->takenText += text;
    return true;
}

void StoryFields::endParagraph()
{
    // A table of contents begins with the paragraph in which its field does.
    if (!_fields.empty() && _passedOver.empty()) {
        Field& field = _fields.back();
        if (!field.hasResult && field.isInParagraph && !findInstruction(_fields.size() - 1) &&
            getFieldName(field.instruction) == "TOC")
            field.isContents = _listener.beginContents(field.instruction);
    }
    for (Field& field : _fields)
        field.isInParagraph = false;
}

std::string StoryFields::finish()
{
    std::string text;
    _passedOver.clear();
    for (const Field& field : _fields) {
        reportOpen(field);
        if (!field.hasResult)
            text += field.takenText;
    }
    for (auto field = _fields.rbegin(); field != _fields.rend(); ++field)
        if (field->isContents)
            _listener.endContents(field->instruction);
    _fields.clear();
    updateRuns();
    return text;
}

void StoryFields::beginResult(Field& field)
{
    field.hasResult = true;
    field.isInParagraph = true;
    field.firstRun = _runs.mark();
    if (findInstruction(_fields.size() - 1))
        return; // its result is a part of that instruction
    if (!field.isContents && getFieldName(field.instruction) == "TOC")
        field.isContents = _listener.beginContents(field.instruction);
    const auto link = readFieldLink(field.instruction);
    const bool isTooLong = link && link->url.size() + link->anchor.size() > StoryRuns::LinkBytesMax;
    if (isTooLong)
        _context.report(StoryRuns::LinkTooLong, std::to_string(StoryRuns::LinkBytesMax));
    if (link && !isTooLong)
        field.link = std::make_shared<DOM::Hyperlink>(link->url, link->anchor);
    else if (!field.isContents)
        field.shared = std::make_shared<const std::string>(field.instruction);
    updateRuns();
}

void StoryFields::closeTop()
{
    const Field field = std::move(_fields.back());
    _fields.pop_back();
    const std::size_t runs = _runs.mark();
    updateRuns();
    if (Field* const outer = findInstruction(_fields.size())) {
        if (!field.hasResult)
            append(*outer, "{" + field.instruction + "}");
    } else if (!field.hasResult) {
        closeWithoutResult(field);
    } else if (field.isInParagraph && (field.shared || (field.link && runs == field.firstRun))) {
        _runs.closeField(field.firstRun, field.instruction);
    }
    if (field.isContents)
        _listener.endContents(field.instruction);
}

void StoryFields::closeWithoutResult(const Field& field)
{
    if (field.isContents)
        return;
    if (getFieldName(field.instruction) == "TOC" && _listener.beginContents(field.instruction))
        _listener.endContents(field.instruction);
    else
        _runs.addField(field.instruction, makeFieldResult(field.instruction));
}

void StoryFields::reportOpen(const Field& field)
{
    _context.report("Field {} does not end", shortenInstruction(field.instruction));
}

void StoryFields::append(Field& field, const std::string& text)
{
    field.instruction += text;
    if (!cutUtf8(field.instruction, InstructionBytesMax) || field.isCut)
        return;
    field.isCut = true;
    _context.report("Field {} has a long instruction, which is cut", getFieldName(field.instruction));
}

/// The innermost field of the @p below outer ones whose instruction goes on; null for none.
StoryFields::Field* StoryFields::findInstruction(std::size_t below)
{
    for (std::size_t i = below; i != 0; --i)
        if (!_fields[i - 1].hasResult)
            return &_fields[i - 1];
    return nullptr;
}

void StoryFields::updateRuns()
{
    StoryRuns::Link link;
    StoryRuns::Instruction instruction;
    for (auto field = _fields.rbegin(); field != _fields.rend(); ++field) {
        if (!link)
            link = field->link;
        if (!instruction)
            instruction = field->shared;
    }
    _runs.setField(std::move(link), std::move(instruction));
}

} // namespace QV::Filters
