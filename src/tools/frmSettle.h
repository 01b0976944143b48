#pragma once

#include <string>

#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Picture.h"

namespace tavrin {

/// Lists every file of the project directory, tells which of them belong to the open project, and deletes those that
/// are marked: at first all that the project does not name, then what the user marks. Only names count: that of the
/// project file and those of the network files and tag files, as the project has them in memory, in any case.
///
/// Nothing but plain files of that very directory is ever deleted, and each by its own name: a link goes itself and not
/// what it points to, and of two files whose names differ only in case the one that is marked. With no directory known
/// there are no rows.
class frmSettle : public Form {
 public:
  /// Opened modally by its user (Desktop::ShowModal), with a project open. @throws RuntimeError 91 without one
  frmSettle();

  ListView ListView1;  ///< a row is a file: key full path in upper case, text name, picture "OK" or "NOK"
  Picture Picture1;
  Picture Picture2;
  ControlArray<Label> Label1;      ///< what the pictures beside them say: 0 not of the project, 1 of the project
  ControlArray<Button> cmdAction;  ///< 0 close, 1 delete

  void GUI_Init();
  void SetupList();
  /// Reads the directory anew; no row is marked then.
  void ShowFiles();
  /// Sets picture and mark of every row by the names of the project. @throws RuntimeError 91 with no project open
  void MarkFiles();
  /// Deletes without asking. A file that cannot be deleted stays, without a message.
  void DeleteMarkedFiles();

  void ListView1_ItemCheck();
  void cmdAction_Click(int index);

 private:
  void Arrange();
  /// Deleting is offered while a row is marked.
  void OfferDelete();

  std::string directory_;  ///< the one whose files are the rows, with a trailing separator; empty for none
};

}  // namespace tavrin
