// The program's global state. It lives for the whole process, belongs to nobody and is read and written by name.
#pragma once
#include "base/Text.h"

extern Text ShowWelcome;  // text of a flag: show frmWelcome at the start
extern Text DebugWhere;   // breadcrumb; only ifDirExists shows it
extern bool DevMode;      // developer's build: no trap catches. Set false at the start and never changed
extern Text AppTitle;     // caption of every screen
extern double FormWidth;  // of every screen of the wizard, in pixels
extern double FormHeight;
extern long PagesFailedCnt;         // links for which no new page could be made; shown nowhere
extern long BrokenLinksTally;       // second tally of missing files; never reset
extern long LinksInternalCnt;       // internal links rewritten in this run
extern long FilesProcessedCnt;      // pages expanded in this run
extern long RunSpareCnt;            // reset by a run and never used
extern long KeywordsInFileName;     // keywords put into the newest file name
extern long InitSpareValue;         // given a value at the start and never read
extern double KeywordsPerFilename;  // keywords wanted in a new file name
extern bool ExitConfirmNeeded;      // ask before ending the program; never cleared
extern Text ProjectMode;            // "load" or "create": how the project was entered
extern bool UsingQuillmark;         // new file names draw on the dictionary instead of the keywords
extern Text ProjectNumber;          // four digits; names the project's directories
extern Text ProjectName;            // the user's name for the project
extern Text LocalSiteDir;           // root of the local copy of the site, with a final backslash
extern Text DomainName;             // without a scheme, "www." and final slashes
extern long KeywordTotal;           // size of the keyword list
extern bool CancelRequested;        // the user cancelled the run; never cleared
extern bool PauseAbortFlag;         // read by btnPause, set by nothing
extern bool TreatThisFile;          // the filter's verdict on the file in hand
extern bool ReportFinished;         // stops the two animations of the report; never cleared
extern Text CurrentFilePath;        // bare name of the page in hand
extern Text LinkSubDir;             // scratch text of isLinkBroken and CreateNewlyKeywordedFile
extern Text FileNameNumber;         // six digits: the number in the newest file name
extern Text OldPageChunk;           // scratch of the page assembly
extern Text NewPageChunk;
extern bool HelpBoxOpen;    // the help box is out on the current screen
extern bool HelpBoxClosed;  // the next ShowHelpBox slides, whatever its heading
