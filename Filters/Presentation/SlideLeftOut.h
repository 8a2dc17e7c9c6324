#pragma once

/// @file
/// What of a presentation this version does not read, in words for a person.

namespace QV::Filters::SlideLeftOut {

constexpr const char* Animations = "animations";
constexpr const char* BackgroundFills = "shapes filled with the slide's background";
constexpr const char* CameraViews = "named camera views of shapes";
constexpr const char* CellLooks = "margins and turned text of table cells";
constexpr const char* Comments = "slide comments";
constexpr const char* CustomShows = "custom shows";
constexpr const char* Diagrams = "diagrams without a drawing";
constexpr const char* EmbeddedFonts = "embedded fonts";
constexpr const char* EmbeddedObjects = "embedded objects and controls (their pictures are kept)";
constexpr const char* Handouts = "handouts";
constexpr const char* HeadersFooters = "settings of headers and footers";
constexpr const char* Ink = "ink";
constexpr const char* Macros = "macros";
constexpr const char* Math = "layout of formulas (their text is kept)";
constexpr const char* Media = "media (sound and video)";
constexpr const char* NewerCharts = "charts of newer kinds (treemaps, waterfalls and the like)";
constexpr const char* NotesLooks = "looks of notes (their text is kept)";
constexpr const char* OtherGraphics = "graphics in frames of other kinds";
constexpr const char* PictureBullets = "pictures as bullets";
constexpr const char* Sections = "sections of slides";
constexpr const char* TextEffects = "outlines, effects and bends of text";
constexpr const char* ThemeOverrides = "themes of single slides and layouts";
constexpr const char* Transitions = "slide transitions";

} // namespace QV::Filters::SlideLeftOut
