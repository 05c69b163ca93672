// The program's global variables. They live for the whole process, have no owner and are read and written by name.
// AppVarNames.cpp lists them once more, for look-ups by name; a test holds the two together.
#pragma once
#include "base/Text.h"

// The program and its screens.
inline constinit bool DevMode = false;            // developer build: no trap catches. Set to false at the start
inline constinit Text AppTitle;                   // caption of every screen
inline constinit double FormWidth = 0;            // width of every wizard screen, in pixels
inline constinit double FormHeight = 0;           // height of every wizard screen, in pixels
inline constinit bool ExitConfirmNeeded = false;  // ask before ending the program; set at the start, never cleared
inline constinit Text DebugWhere;                 // name of a procedure that was entered; only ifDirExists shows it

// The project.
inline constinit Text ProjectMode;       // "load" or "create": how the project was entered
inline constinit Text ProjectNumber;     // four digits, which name the project's two directories
inline constinit Text ProjectName;       // the user's name for the project
inline constinit Text LocalSiteDir;      // root of the local copy of the site, with a final backslash
inline constinit Text DomainName;        // without "http://", "www." and final slashes, in the case that was entered
inline constinit long KeywordTotal = 0;  // number of rows of the keyword list

// The options.
inline constinit Text ShowWelcome;                // a flag as text: show frmWelcome at the start
inline constinit bool UsingQuillmark = false;     // new file names use words of the dictionary instead of keywords
inline constinit double KeywordsPerFilename = 0;  // keywords wanted in a new file name; a short file name lowers it

// The run.
inline constinit bool CancelRequested = false;  // the user cancelled the run; never cleared
inline constinit bool PauseAbortFlag = false;   // ends a pause like CancelRequested, but nothing sets it
inline constinit bool ReportFinished = false;   // stops the two animations of the report; a run never clears it
inline constinit bool TreatThisFile = false;    // the filter lets the current file through
inline constinit Text CurrentFilePath;          // bare name of the current page
inline constinit long FilesProcessedCnt = 0;    // pages expanded in this run
inline constinit long LinksInternalCnt = 0;     // internal links rewritten in this run
inline constinit long BrokenLinksTally = 0;     // a second count of missing files; never reset
inline constinit long KeywordsInFileName = 0;   // keywords in the file name made last
inline constinit Text FileNameNumber;           // the six digits of the file name made last
inline constinit Text LinkSubDir;               // work area of isLinkBroken and CreateNewlyKeywordedFile
inline constinit Text OldPageChunk;             // last piece that was added to the page with its old links
inline constinit Text NewPageChunk;             // last piece that was added to the page with its new links

// The help box.
inline constinit bool HelpBoxOpen = false;   // the help box of the current screen is open
inline constinit bool HelpBoxClosed = true;  // the next ShowHelpBox slides the box out, whatever its heading

// Written, but read by nothing.
inline constinit long PagesFailedCnt = 0;  // links for which no new page could be made
inline constinit long RunSpareCnt = 0;     // set to 0 at each run
inline constinit long InitSpareValue = 0;  // set to 1 at the start
