#pragma once

#include "app/session/Stage.h"

namespace tavrin {

/// What the user does in the window in front. Each takes the road of the control's gesture and refuses what a user
/// could not do.

// ---- with the mouse (MouseGestures.cpp)
void Click(Stage& stage, Words words);
void RightClick(Stage& stage, Words words);
void DoubleClick(Stage& stage, Words words);
void PointAt(Stage& stage, Words words);
void ExpandNode(Stage& stage, Words words);
void CollapseNode(Stage& stage, Words words);
void DragSplitter(Stage& stage, Words words);
void WidenColumn(Stage& stage, Words words);

// ---- with the keyboard (KeyGestures.cpp)
void FocusControl(Stage& stage, Words words);
void SelectByKeys(Stage& stage, Words words);
void PressKey(Stage& stage, Words words);
void TypeText(Stage& stage, Words words);
void ClearText(Stage& stage, Words words);
void ChooseText(Stage& stage, Words words);

// ---- in a list with boxes (ListGestures.cpp)
void TickRow(Stage& stage, Words words);
void UntickRow(Stage& stage, Words words);

// ---- with the window (WindowGestures.cpp)
void ResizeWindow(Stage& stage, Words words);
void MoveWindow(Stage& stage, Words words);
void ChangeState(Stage& stage, Words words);
void DropFile(Stage& stage, Words words);
void CloseWindow(Stage& stage, Words words);

// ---- what is around the program and no user's doing (Around.cpp)
void SetPrograms(Stage& stage, Words words);
void SetService(Stage& stage, Words words);
void SetClock(Stage& stage, Words words);
void ElapseTimer(Stage& stage, Words words);
// ... and its OPC server (SessionServers.cpp)
void SetServer(Stage& stage, Words words);
void ChangeData(Stage& stage, Words words);

}  // namespace tavrin
