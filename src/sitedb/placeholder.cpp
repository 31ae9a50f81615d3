namespace qv {}
