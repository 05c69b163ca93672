// The controls that choose drives, directories and files.
#pragma once
#include "toolkit/Controls.h"
#include <memory>

// The subdirectories of a path, as full paths, ascending by name ignoring case.
class DirList : public Control
{
public:
    using Control::Control;
    // The current directory, without a final backslash unless it is a drive's root. Assigning it reads the rows; a
    // run-time failure when there is no such directory.
    Accessor<DirList, Text> Path{this, &DirList::GetPath, &DirList::SetPath};
    int ListCount() const;
    // Row theIndex as a full path. Row -1 is the current directory, row -2 the one above it and so on, up to the
    // drive's root; what lies beyond either end is empty.
    Text List(int theIndex) const;
    // How many directories lead to the current one, itself included.
    int Depth() const;
    // The highlighted row, -1 when it is the current directory.
    int ListIndex() const;
    void Refresh();

    Text NowPath;
    int NowIndex = -1;
    std::shared_ptr<const std::vector<Text>> NowNames;
    const char *Kind() const override { return "directory list"; }
    void Reset() override;

private:
    const Text &GetPath() const;
    void SetPath(const Text &thePath);
};

// The files of a path as bare names, ascending ignoring case, hidden ones left out.
class FileList : public Control
{
public:
    using Control::Control;
    // The directory listed. The rows are read when they are first asked for; assigning a directory that isn't there
    // is a run-time failure.
    Accessor<FileList, Text> Path{this, &FileList::GetPath, &FileList::SetPath};
    // Only names that fit are listed; "*" and "?" are wildcards, an empty pattern lists all.
    Accessor<FileList, Text> Pattern{this, &FileList::GetPattern, &FileList::SetPattern};
    int ListCount() const;
    // The name in a row; empty when there is no such row.
    Text List(int theIndex) const;
    void Refresh();

    const char *Kind() const override { return "file list"; }
    void Reset() override;

private:
    const Text &GetPath() const;
    void SetPath(const Text &thePath);
    const Text &GetPattern() const;
    void SetPattern(const Text &thePattern);
    const std::vector<Text> &Names() const;
    Text path, pattern;
    mutable std::shared_ptr<const std::vector<Text>> names;
};

// The drives of the machine as "c:".
class DriveList : public Control
{
public:
    using Control::Control;
    // The picked drive. Assigning a path picks its drive; a run-time failure when there is no such drive.
    Accessor<DriveList, Text> Drive{this, &DriveList::GetDrive, &DriveList::SetDrive};
    Text NowDrive;
    const char *Kind() const override { return "drive list"; }
    void Reset() override;

private:
    const Text &GetDrive() const;
    void SetDrive(const Text &thePath);
};

// Asks for an existing file. Filter is "Words (*.txt)|*.txt|(*.*)|*.*|".
class FileDialog : public Element
{
public:
    using Element::Element;
    Text Filter;
    Text FileName;  // the chosen file's full path; empty when the user cancelled
    void ShowOpen();
    const char *Kind() const override { return "file dialog"; }
    void Reset() override;
};
