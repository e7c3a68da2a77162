#pragma once

#include <QIcon>
#include <QPixmap>

namespace feltmaster {

// The picture that stands for the program, `size` pixels wide and high.
QPixmap ProgramPicture(int size);
// In the sizes that window managers ask for.
QIcon ProgramIcon();

}  // namespace feltmaster
