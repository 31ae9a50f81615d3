// Binder of lists.
#pragma once

#include "desktop/binder.h"
#include "desktop/list_view.h"

namespace qv {

class ListBinder : public Binder {
   public:
    ListBinder(ListBox& list, ListView* widget);

    void Release() override;
    ListView& View() const { return *view_; }
    void RowsChanged() { view_->RowsChanged(); }
    void RowChanged(int row) { view_->RowChanged(row); }

   protected:
    void ShowAspect(Aspect aspect) override;
    void AddWidgetState(nlohmann::json& state) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    ListView* view_;
};

}  // namespace qv
