// Twips to character cells: how the terminal places what VB measures in
// twips (forms, dialogs and their controls).
//
// A cell stands for 8 by 16 pixels at 96 dots per inch, 120 by 240 twips,
// the system font's average character; a dialog laid out in twips keeps its
// proportions in cells. Positions round down and sizes round to the nearest
// cell, at least one, so a control never vanishes and neighbours that do not
// overlap in twips do not overlap in cells when they stand on that grid.
#pragma once

namespace tui {

inline constexpr int kTwipsPerColumn = 120;
inline constexpr int kTwipsPerRow = 240;

constexpr int ColumnOf(int twips) { return twips / kTwipsPerColumn; }
constexpr int RowOf(int twips) { return twips / kTwipsPerRow; }
constexpr int ColumnsOf(int twips) {
  const int cells = (twips + kTwipsPerColumn / 2) / kTwipsPerColumn;
  return cells > 0 ? cells : 1;
}
constexpr int RowsOf(int twips) {
  const int cells = (twips + kTwipsPerRow / 2) / kTwipsPerRow;
  return cells > 0 ? cells : 1;
}

}  // namespace tui
