// What pages may load and where they may lead. The pages of a site may have been written by anyone, and their scripts
// can read the files that they load; so nothing that such a script knows may get out.
//
// A page on this computer loads only files of the program directory and of the project's site, and nothing from the
// web. A page from the web loads no files. A link leads out when the user clicks it.
#pragma once
#include <QUrl>
#include <functional>

namespace PageRules
{
// Whether theUrl is a page from the web.
bool IsWeb(const QUrl &theUrl);
// Whether theUrl is a file in the program directory or in the project's site once all links are followed. A file that
// is not there is judged by its directory.
bool IsOurFile(const QUrl &theUrl);

enum class Use {
    Part,  // a picture, a style sheet, a script, a frame
    Data,  // what a script requests to read or to send
};
// Whether a page at thePage, or a frame in it, may load theUrl by itself.
bool MayLoad(const QUrl &theUrl, const QUrl &thePage, Use theUse);

// A page or a frame is about to show something else.
struct Step {
    QUrl From;  // the page in the view
    QUrl To;
    bool IsFrame = false;     // only a frame of the page would change
    bool IsForm = false;      // a form is sent
    bool IsRedirect = false;  // the server of a page on the web has passed the request on
    bool HasClick = false;    // the user has just clicked, or pressed a key that clicks
};
enum class Verdict {
    Allow,
    Refuse,
    Open,     // the view opens the address itself: a plain request without anything that a script could add
    AskPage,  // as Open, but the user must agree to the address
    AskOther  // another program opens the address if the user agrees
};
// inFile tells whether the file of the page, or of one of its frames, contains a link to the address.
Verdict Judge(const Step &theStep, const std::function<bool()> &inFile);
}  // namespace PageRules
