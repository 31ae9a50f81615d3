// The help pages, which come with the program.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/programs.h"

namespace qv {

enum class HelpTopic { Contents = 10, Wizard = 50, Preferences = 60, Enterprise = 70, Reports = 80, Manager = 190, Emailer = 200, Scheduling = 220 };

class Help {
   public:
    Help(const Files& files, Programs& programs, const Places& places) : files_(files), programs_(programs), places_(places) {}

    // Opens the page of a topic in what the desktop has for pages: the one in the program's folder, else the shipped one. A page
    // that isn't there is passed over.
    void Show(HelpTopic topic);

   private:
    const Files& files_;
    Programs& programs_;
    const Places& places_;
};

}  // namespace qv
