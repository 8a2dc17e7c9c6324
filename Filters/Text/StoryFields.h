#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <Filters/Text/StoryRuns.h>

namespace QV::Filters {

struct TextContext;

/// The fields of one story: they are open from their first character on, across runs and paragraphs, and may
/// stand in each other. What is said of them goes to the runs.
///
/// Instructions longer than InstructionBytesMax are cut, and fields in more than DepthMax others are passed
/// over, so that their results are text. Reported:
///     - "Field {} has a long instruction, which is cut"
///     - "Fields within more than {} others are kept as text"
///     - "Field {} does not end"
///     - "Instruction {} is in no field"
class StoryFields
{
public:
    static constexpr std::size_t DepthMax = 100;
    static constexpr std::size_t InstructionBytesMax = 64U << 10U;

    /// Who hears of fields that are tables of contents.
    struct Listener
    {
        /// One begins; false where it is to be a field like others.
        std::function<bool(const std::string& instruction)> beginContents;
        /// The last one that began ends; its instruction is as it is by now.
        std::function<void(const std::string& instruction)> endContents;
    };

    StoryFields(TextContext& context, StoryRuns& runs, Listener listener);

    /// What the characters of a field say: its begin, where its result begins, and its end.
    void begin();
    void separate();
    void end();
    void addInstruction(const std::string& text);

    /// A field that is an element, whose content is the result.
    void beginSimple(const std::string& instruction);
    void endSimple();

    /// Takes text that is a part of an instruction, since it is the result of a field inside of one.
    /// @return false for all other text
    bool takeText(const std::string& text);

    void endParagraph();

    /// Fields that are open end here.
    /// @return text that was taken for instructions that did not come to their end
    std::string finish();

private:
    struct Field
    {
        std::string instruction;
        std::string takenText; // of takeText, within the instruction
        StoryRuns::Link link;
        StoryRuns::Instruction shared; // of the runs of its result; null where it has none
        std::size_t firstRun = 0;      // of its result, where that begins in the open paragraph
        bool isSimple = false;
        bool hasResult = false;
        bool isInParagraph = true; // its beginning, and then that of its result
        bool isContents = false;
        bool isCut = false;
    };

    void beginResult(Field& field);
    void closeTop();
    void closeWithoutResult(const Field& field);
    void reportOpen(const Field& field);
    void append(Field& field, const std::string& text);
    Field* findInstruction(std::size_t below);
    void updateRuns();

    TextContext& _context;
    StoryRuns& _runs;
    Listener _listener;
    std::vector<Field> _fields;        // from the outermost on
    std::vector<bool> _passedOver;     // fields that are too deep; true for simple ones
    std::size_t _simplePassedOver = 0; // of them
};

} // namespace QV::Filters
