// `FormSelezSpessore`: the thickness of each colour on paper and the options of the plot.
#pragma once

namespace varena {

struct Sessione;

bool ApriFormSelezSpessore(Sessione& s);

}  // namespace varena
