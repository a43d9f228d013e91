#pragma once

#include "Vantry/interface/design/ShotMetrics.h"

namespace vantry {

/// Every length of the interface, in points, by its role. Pages name no number.
struct Metrics : ShotMetrics {
    // Space between things, from the closest to the widest.
    static constexpr int gapLines = 2;        ///< lines of one heading, sidebar rows
    static constexpr int gapTrack = 4;        ///< inside tracks, buttons of one strip
    static constexpr int gapCaption = 6;      ///< a caption above its field
    static constexpr int gapInline = 8;       ///< icon to text, field to note, buttons side by side
    static constexpr int gapDisclosure = 10;  ///< sign to title in the header of a disclosure
    static constexpr int gapField = 12;       ///< fields of a form, a section's title to its content
    static constexpr int gapCard = 16;        ///< inside a card
    static constexpr int gapBlock = 20;       ///< blocks of a dense page
    static constexpr int gapSection = 24;     ///< columns, sections of an open page
    static constexpr int paddingPage = 24;
    static constexpr int paddingUnderCrumbs = 16;
    static constexpr int paddingCard = 24;
    static constexpr int paddingDialog = 28;
    static constexpr int paddingEmpty = 40;
    static constexpr int gapEmpty = 18;
    static constexpr int paddingMetric = 18;
    static constexpr int headingActionsDrop = 14;  ///< actions of a heading below its upper edge
    static constexpr int paddingPrimary = 16;
    static constexpr int paddingQuiet = 14;
    static constexpr int paddingInline = 6;
    static constexpr int paddingField = 12;
    static constexpr int paddingEditor = 10;
    static constexpr int paddingDisclosure = 16;
    static constexpr int paddingSidebar = 12;
    static constexpr int paddingMenu = 6;
    static constexpr int paddingMenuItem = 12;
    static constexpr int paddingHelp = 10;     ///< hover help, at its sides
    static constexpr int paddingHelpLine = 6;  ///< and above and below
    static constexpr int paddingBrand = 20;

    // Lines and corners.
    static constexpr int hairline = 1;
    static constexpr int ring = 2;
    static constexpr int caret = 2;
    static constexpr int ringGap = 2;                 ///< between a button and the ring around it
    static constexpr int ringReach = ring + ringGap;  ///< the furthest that a ring reaches out
    static constexpr double focusedFrame = 1.5;       ///< the border of an editor that has the keyboard
    static constexpr int stroke = 2;                  ///< a line of a drawing
    static constexpr int radiusMark = 2;              ///< the painted square
    static constexpr int radiusControl = 8;
    static constexpr int radiusTrack = 12;
    static constexpr int radiusPanel = 12;  ///< what lies over a window: sheets, menus
    static constexpr int radiusCard = 24;

    // Things of a fixed size.
    static constexpr int controlHeight = 44;
    static constexpr int inlineHeight = 28;
    static constexpr int rowHeight = 72;
    static constexpr int resultHeight = 64;
    static constexpr int starWidth = 60;
    static constexpr int resultWidth = 112;
    static constexpr int iconSmall = 16;
    static constexpr int icon = 18;
    static constexpr int iconLarge = 20;
    static constexpr int iconSheet = 24;
    static constexpr int iconStar = 30;
    static constexpr int navigationDot = 4;      ///< beneath the chosen tab
    static constexpr int navigationDotFoot = 5;  ///< from the foot of the tab
    static constexpr int toggleWidth = 44;
    static constexpr int toggleHeight = 26;
    static constexpr int toggleKnobOff = 16;
    static constexpr int toggleKnobOn = 20;
    static constexpr int disclosureIcon = 20;  ///< the slot of its sign
    static constexpr int starDrop = 1;         ///< its middle looks higher than it is
    static constexpr int iconEmpty = 27;
    static constexpr int pillText = 11;
    static constexpr int pillSign = 9;
    static constexpr int completionHeight = 3;
    static constexpr int metricHeight = 60;
    static constexpr int actRowHeight = 88;
    static constexpr int upcomingRowHeight = 76;
    static constexpr int referenceRowHeight = 64;
    static constexpr int personRowHeight = 52;
    static constexpr int productionHeight = 149;
    static constexpr int markSize = 8;  ///< the painted disc and square
    static constexpr int editorHeight = 206;
    static constexpr int notesHeight = 108;
    static constexpr int namesHeight = 82;
    static constexpr int scrollHandle = 6;
    static constexpr int scrollMargin = 3;
    static constexpr int scrollStrip = scrollHandle + 2 * scrollMargin;
    static constexpr int menuBarItemHeight = 28;
    static constexpr int menuItemHeight = 36;
    static constexpr int menuSeparatorHeight = 13;
    static constexpr int menuWidth = 220;

    // The frame of the window.
    static constexpr int windowWidth = 1380;
    static constexpr int windowHeight = 900;
    static constexpr int windowMinimumWidth = 1000;
    static constexpr int windowMinimumHeight = 680;
    static constexpr int sidebarMinimum = 220;
    static constexpr int sidebarIdeal = 250;
    static constexpr int sidebarMaximum = 360;
    static constexpr int toolbarHeight = 48;
    static constexpr int toolButtonWidth = 44;
    static constexpr int toolButtonHeight = 40;
    static constexpr int crumbsHeight = 32;
    static constexpr int bannerHeight = 40;
    static constexpr int statusHeight = 28;
    static constexpr int iconStatus = 14;
    static constexpr int brandBlockHeight = 76;
    static constexpr int brandWidth = 30;
    static constexpr int brandHeight = 36;
    static constexpr int treeRowHeight = 44;
    static constexpr int treeIndent = 14;
    static constexpr int treeChevron = 14;
    static constexpr int treeInset = 6;  ///< the chevron from the row's edge
    static constexpr int treeTitleHeight = 18;
    static constexpr int treeDetailHeight = 16;
    static constexpr int selectionBar = 3;

    // Pages.
    static constexpr int pageWidth = 1120;
    static constexpr int sideWidth = 336;
    static constexpr int columnsFrom = 840;  ///< narrower pages have one column
    static constexpr int remarkWidth = 300;
    static constexpr int metricMinimum = 240;
    static constexpr int formMinimum = 260;
    static constexpr int cardsMinimum = 320;
    static constexpr int dialogWidth = 420;
    static constexpr int dialogButtonWidth = 88;
    static constexpr int emptyTextWidth = 460;
    static constexpr int sheetHeaderHeight = 76;   ///< of a sheet with a header of its own
    static constexpr int sheetFooterHeight = 40;   ///< and of its footer, while that is a text alone
    static constexpr int sheetButtonsHeight = 68;  ///< while it holds buttons
    static constexpr int paddingSheet = 24;
};

}  // namespace vantry
