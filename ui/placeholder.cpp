// The views of the program's windows are added beside this file.
namespace zef::ui {}
