#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/key.h"
#include "controls/rows_control.h"

namespace quillmark {

/// Width of list view columns: 1440 to the inch.
inline constexpr int kFormUnitsPerInch = 1440;

struct Column {
  std::string caption;
  int width = 1440;  ///< in form units; 0 hides the column

  bool operator==(const Column&) const = default;
};

struct ListViewRow {
  std::vector<std::string> cells;
  int icon = 0;  ///< image number from 1; 0 for none

  bool operator==(const ListViewRow&) const = default;
};

/// Names of the pictures of an image list; image number n is entry n - 1.
using ImageList = std::vector<std::string>;

/// A table with column captions and a small icon in front of each row. A write of the selection
/// from code raises nothing; any choice of a row by a person raises `onItemClick`, also of the row
/// that is selected already, and a press of the left button anywhere in it raises `onClick` after
/// that.
class ListView : public RowsControl {
 public:
  ListView(Form& form, std::string_view name, const Design& design, std::vector<Column> columns,
           ImageList images = {}, int index = -1);

  std::function<void()> onItemClick;
  std::function<void()> onClick;

  const std::vector<Column>& Columns() const { return columns_; }
  /// Columns and cells are numbered from 1. An unknown one throws the subscript fault.
  void SetColumnCaption(int column, std::string_view caption);
  void SetColumnWidth(int column, int width);
  const ImageList& Images() const { return images_; }

  const std::vector<ListViewRow>& Rows() const { return rows_; }
  int Count() const override { return static_cast<int>(rows_.size()); }
  /// The selected row; throws the missing selection fault where there is none.
  int SelectedRow() const;
  const std::string& Cell(int row, int column) const;

  /// Appends a row; cells that are not given are empty.
  void AddRow(std::vector<std::string> cells, int icon = 0);
  void SetCell(int row, int column, std::string_view text);
  void SetIcon(int row, int icon);
  void Clear();

  /// A person clicks a row.
  bool ClickRow(int row);
  /// A person clicks where no row is.
  bool ClickBeside();

  bool HandleKey(Key key) override;
  void Restart() override;

 protected:
  std::string_view TextToFind(int row) const override { return Cell(row, 1); }
  void SelectByPerson(int row) override;

 private:
  std::vector<Column> design_;
  ImageList images_;
  std::vector<Column> columns_;
  std::vector<ListViewRow> rows_;
};

}  // namespace quillmark
