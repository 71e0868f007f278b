// Options that the pragma FUNCTION_OPTIONS gives a function of its own: which words it may hold,
// and the set of options that later stages read for the function.
#ifndef OPTIONS_OPTOBJ_H
#define OPTIONS_OPTOBJ_H

#include <string>
#include <vector>

enum an_option_verdict {
  ov_accepted,
  ov_not_an_option,      // no option, a bad argument, or a conflict with an earlier word
  ov_not_for_functions,  // an option, but only for whole files
};

// The options of one function, in the order of their last setting.
class a_function_option_set {
 public:
  // Takes a word: --name, --name=value, or -O with a digit.
  an_option_verdict add(const char *word);
  // The words in their full form, each option once.
  std::vector<std::string> words() const;

 private:
  struct a_setting {
    int option;
    std::string argument;
  };
  std::vector<a_setting> settings;
};

#endif
