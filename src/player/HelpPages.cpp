#include "player/HelpPages.h"

const char *const helpOfPlay =
    R"(Usage: ferncastle-play expand --site DIR --domain NAME --keywords FILE [OPTION]...
       ferncastle-play check --site DIR --domain NAME --keywords FILE [OPTION]...
       ferncastle-play [OPTION]... [SCRIPT]

Runs Ferncastle without its windows. "expand" makes the bigger copy of a site,
"check" tells beforehand what that would do, and a script does anything else
that a user can do. Without SCRIPT, the script is read from standard input.

      --program-dir DIR  use DIR, with its word lists, pictures and projects,
                         instead of the directory that holds this program
      --drive x=DIR      in a script, let DIR be the drive x:, for letters from
                         d: on; drive c: is the root directory of this computer
      --seed N           make the random choices of a run repeatable
      --help             show this page; "ferncastle-play expand --help" and
                         "ferncastle-play check --help" show those of the commands
      --version          show the version

Exit status: 0 the script was played, 1 an expectation failed, 2 the script or
an option is wrong, 3 a failure, 4 a standstill.

A script has one action per line; DEVELOPING.md in the sources lists them. To
see one, call "ferncastle-play expand" with the option --print-script.
)";

// The options that "expand" and "check" share.
static const char *const runOptions =
    R"(      --site DIR         the directory that holds your copy of the site
      --domain NAME      the domain of the site, such as www.my-site.example;
                         http://, https:// and capitals do no harm
      --keywords FILE    a text file with one keyword or phrase on each line
      --name TEXT        the name of the project; the domain if left out
      --per-name N       keywords in each new file name; 3 if left out
      --quillmark        take the words of new names from the dictionary instead
      --no-quillmark     take them from the keywords, which is usual
      --no-filters       treat every file as a page, pictures too
      --project NUMBER   load this project, such as 0001. What you leave out of
                         the options above is as the project has it saved
)";

Text HelpOfExpand()
{
    return Text(R"(Usage: ferncastle-play expand --site DIR --domain NAME --keywords FILE [OPTION]...
       ferncastle-play expand --project NUMBER [OPTION]...

Makes a bigger copy of a web site, and a report on its links. It goes through
the screens of the wizard as a user would. Your own files are only read. The
new site and the report go into the program directory, and the summary says
where they are. A project that is run again keeps the pages of its earlier runs.

)") + runOptions +
           R"(      --seed N           make the random choices of the run repeatable
      --json FILE        write the summary to FILE too, with all broken and
                         external links; the manual page lists the fields
      --quiet            show neither progress nor a summary
      --print-script     print the script that would be played, and do nothing
      --program-dir DIR  use DIR, with its word lists, pictures and projects,
                         instead of the directory that holds this program
      --help             show this page

Standard error gets the progress, the messages of the run, each different one
once with its count, and files that could not be read or written. Standard
output gets the summary.

Exit status: 0 the report is made, 2 an option is wrong or a place to write to
can't be written, 3 a failure ended the run or it could make no report, 4 a
standstill ended it.

Examples:
  ferncastle-play expand --site ~/site --domain www.my-site.example \
                         --keywords keywords.txt --json summary.json
  ferncastle-play expand --project 0001 --keywords better-keywords.txt
)";
}

Text HelpOfCheck()
{
    return Text(R"(Usage: ferncastle-play check --site DIR --domain NAME --keywords FILE [OPTION]...
       ferncastle-play check --project NUMBER [OPTION]...

Tells what "ferncastle-play expand" would do with the same options, and what
would go wrong. It rehearses the whole run without writing a page: only a small
temporary directory is made, and removed again.

)") + runOptions +
           R"(      --seed N           rehearse the run that "expand" makes with this seed
      --json FILE        write the findings and the numbers to FILE too
      --quiet            show only what would end the run
      --program-dir DIR  use DIR, with its word lists, pictures and projects,
                         instead of the directory that holds this program
      --help             show this page

Each line of standard output names a file, its line where there is one, and what
was found there. "error" marks what would end the run or leave it without a
report, "warning" what would only give another result than you may expect:

  error    two good links in one tag; a link whose value or tag has no end; too
           few keywords; a directory of more than 32,767 files; a site that holds
           its own new site; a place that you may not write in, or where
           something of another kind is in the way; not enough space on the disk
  warning  https links to the site's own domain; keywords that are repeated or
           hold one of / \ : * ? " < > | # % or a line break; new names that are
           too long for the disk; files that can't be copied, such as those whose
           names have no dot; what a run leaves out: hidden files, names with a
           backslash, and one of two names that differ only in case

The last lines give the pages, the links and so the copies, and the files and
bytes that would be written, against the bytes that are free. A project that is
run again writes the pages of its earlier runs anew too. After an error in a page
the rest of that page isn't counted.

Exit status: 0 nothing would end the run, 1 something would, 2 an option is
wrong.
)";
}
