#pragma once

#include "gallery/Board.h"

namespace vantry::gallery {

class Sample;

// Each adds its sections to the board, in the order in which a newcomer learns them.

/// Colours, type, signs.
void showTokens(Board& board);
/// Buttons, fields, switches, hover help.
void showControls(Board& board);
/// What is chosen from: results, stars, tabs, menus.
void showChoices(Board& board);
/// Headings, cards, lists and the small parts of pages.
void showPageParts(Board& board);
/// Rows of the sidebar and its tree, crumbs, the status line, the banner, sheets.
void showFrame(Board& board, Sample& sample);

}  // namespace vantry::gallery
