#pragma once

/// @file
/// Every public header of the library, for a caller who wants it all.

#include <FilterUtils/FU_Anchors.h>                     // IWYU pragma: keep
#include <FilterUtils/FU_AnchorsConverter.h>            // IWYU pragma: keep
#include <FilterUtils/FU_CellBordersStyleResolver.h>    // IWYU pragma: keep
#include <FilterUtils/FU_CellQueries.h>                 // IWYU pragma: keep
#include <FilterUtils/FU_ChartQueries.h>                // IWYU pragma: keep
#include <FilterUtils/FU_Colors.h>                      // IWYU pragma: keep
#include <FilterUtils/FU_DateTimeFormatCodes.h>         // IWYU pragma: keep
#include <FilterUtils/FU_DocumentLinks.h>               // IWYU pragma: keep
#include <FilterUtils/FU_Errors.h>                      // IWYU pragma: keep
#include <FilterUtils/FU_GeometryParserUtils.h>         // IWYU pragma: keep
#include <FilterUtils/FU_HeadersFootersFactory.h>       // IWYU pragma: keep
#include <FilterUtils/FU_IDGenerators.h>                // IWYU pragma: keep
#include <FilterUtils/FU_Lengths.h>                     // IWYU pragma: keep
#include <FilterUtils/FU_LocalFSMediaStorage.h>         // IWYU pragma: keep
#include <FilterUtils/FU_MediaStorage.h>                // IWYU pragma: keep
#include <FilterUtils/FU_MergedRegions.h>               // IWYU pragma: keep
#include <FilterUtils/FU_NamedStylesFactory.h>          // IWYU pragma: keep
#include <FilterUtils/FU_NonIntersectedRanges.h>        // IWYU pragma: keep
#include <FilterUtils/FU_NumberText.h>                  // IWYU pragma: keep
#include <FilterUtils/FU_NumberedListsFactory.h>        // IWYU pragma: keep
#include <FilterUtils/FU_Pictures.h>                    // IWYU pragma: keep
#include <FilterUtils/FU_PivotTables.h>                 // IWYU pragma: keep
#include <FilterUtils/FU_Slides.h>                      // IWYU pragma: keep
#include <FilterUtils/FU_StyleHierarchy.h>              // IWYU pragma: keep
#include <FilterUtils/FU_TableDimensionsInfo.h>         // IWYU pragma: keep
#include <FilterUtils/FU_TableIndices.h>                // IWYU pragma: keep
#include <FilterUtils/FU_TableNamesInFormulas.h>        // IWYU pragma: keep
#include <FilterUtils/FU_TableOfContentsLevelsFiller.h> // IWYU pragma: keep
#include <FilterUtils/FU_Text.h>                        // IWYU pragma: keep
#include <FilterUtils/FU_TransformMatrices.h>           // IWYU pragma: keep
#include <FilterUtils/FU_XMLElement.h>                  // IWYU pragma: keep
#include <FilterUtils/FU_XMLNames.h>                    // IWYU pragma: keep
#include <FilterUtils/FU_XMLReadOptions.h>              // IWYU pragma: keep
#include <FilterUtils/FU_XMLStreamReader.h>             // IWYU pragma: keep
#include <FilterUtils/FU_XMLVocabulary.h>               // IWYU pragma: keep
