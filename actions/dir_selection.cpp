#include "actions/dir_selection.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv {

namespace {

constexpr long kDeviceUnavailable = 68;

std::string Below(const std::string& folder, const std::string& name) {
  return EndsWith(folder, "\\") ? folder + name : folder + "\\" + name;
}

}  // namespace

frmDirSelection::frmDirSelection(Toolkit& toolkit, Folders& folders)
    : Form(toolkit, "frmDirSelection", "Select Directory"), folders_(folders) {
  dirDrive.Click = [this] {
    if (dirDrive.Text() == drive_) return;
    drive_ = dirDrive.Text();
    dirDrive_Change();
  };
  dirDir.DblClick = [this] {
    const long index = dirDir.ListIndex();
    if (index >= 0) SetDir(std::string(paths_.at(static_cast<std::size_t>(index))));
  };
  cmdOK.Click = [this] {
    result_ = dir_;
    Unload();
  };
  cmdCancel.Click = [this] { Unload(); };
}

void frmDirSelection::Form_Load() {
  drive_ = dir_ = "";
  paths_.clear();
  IgnoreErrors([&] {
    for (std::string& drive : folders_.DriveNames()) dirDrive.AddItem(std::move(drive));
    if (dirDrive.ListCount() == 0) return;
    dirDrive.SetListIndex(0);
    drive_ = dirDrive.Text();
    SetDir(folders_.CurrentFolder(drive_));
  });
}

std::string frmDirSelection::SelectDir(const std::string& path) {
  result_ = "";
  Load();
  std::string absolute, drive;
  IgnoreErrors([&] { absolute = folders_.GetAbsolutePathName(path); });
  IgnoreErrors([&] { drive = folders_.GetDriveName(absolute); });
  IgnoreErrors([&] { SetDrive(drive); });
  IgnoreErrors([&] { SetDir(path); });
  ShowModal();
  return result_;
}

void frmDirSelection::SetDrive(const std::string& drive) {
  for (long index = 0; index < dirDrive.ListCount(); ++index) {
    if (UpperCase(dirDrive.List(index)) != UpperCase(drive)) continue;
    dirDrive.SetListIndex(index);
    dirDrive.Click();
    return;
  }
  throw RuntimeError(kDeviceUnavailable, "Device unavailable");
}

void frmDirSelection::SetDir(const std::string& path) {
  const std::vector<std::string> inside = folders_.FolderNames(path);
  dir_ = path;
  paths_.clear();
  dirDir.Clear();
  std::string folder;
  for (const std::string& name : Split(path, "\\")) {
    if (name.empty()) continue;
    const bool drive = folder.empty();
    folder = drive ? name : Below(folder, name);
    if (drive) folder += '\\';
    paths_.push_back(folder);
    dirDir.AddItem(paths_.size() == 1 ? folder : name);
  }
  if (!paths_.empty()) dirDir.SetListIndex(dirDir.ListCount() - 1);
  for (const std::string& name : inside) {
    paths_.push_back(Below(path, name));
    dirDir.AddItem(name);
  }
}

void frmDirSelection::dirDrive_Change() {
  try {
    SetDir(folders_.CurrentFolder(drive_));
  } catch (const RuntimeError& error) {
    toolkit().ShowMessage("Error with device: " + error.description(), "Error", MessageIcon::Exclamation);
  }
}

Layout frmDirSelection::Arrange() const {
  return layout::Column(
      {layout::Item(dirDrive), layout::Grow(layout::Item(dirDir, 10)), layout::Buttons({&cmdOK, &cmdCancel})});
}

}  // namespace qv
