// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Property.h"
#include "tools/RigidMotion.h"

namespace Base {
class GLView;
}

namespace Freecut {

/// The parameters that all solid tools share.
///
/// A solid tool is drawn on the screen, so it is kept in eye space too: its outline lies in the
/// plane sketchDepth of eye space, and its solid is the outline moved along extrudeVector. The eye
/// space is that of the view that shows the tool's document, or the active document if the tool is
/// in none. Without such a view the operations that need it change nothing.
///
/// Lengths in millimetres.
class VolumeProperty : public Property
{
public:
    /// Takes the key points over into eye space. This one serves the polygon.
    virtual void storeEyePoints();
    virtual std::vector<UPoint3<float>> getEyePoints() const;
    /// Stores the values and no more.
    virtual void setCommonParameters(bool clearanceEnabled, int clearanceDirection, float clearance,
                                     bool cutTillEnabled, float cutTillValue, unsigned fillAlpha,
                                     bool showCoordinate, int viewIndex);

    /// Lets the tool run through all parts of the active document, with one percent of their depth
    /// to spare at each end: sets sketchDepth and extrudeVector. In a standard view "Cut till" ends
    /// it at a world coordinate instead.
    void updateDepth();
    /// Notes the camera of the active document's view as the last one seen.
    void rememberView();

    /// The camera to go back to when the preview ends.
    void saveCamera(UPoint3<float> const& eye, UPoint3<float> const& ref,
                    UVector3<float> const& up);
    void loadCamera(UPoint3<float>& eye, UPoint3<float>& ref, UVector3<float>& up) const;
    void setPreviewing(bool on) { previewOn = on; }

    /// Where turns of the view have taken the tool in the world since it was made. A pan leaves it
    /// on the model.
    RigidMotion const& getTurns() const { return turns; }
    void addTurn(RigidMotion const& turn) { turns = turns.then(turn); }

    /// The key points in eye space, as of the last storeEyePoints.
    std::vector<UPoint3<float>> const& getEyeKeyPoints() const { return eyeKeyPoints; }
    void setEyeKeyPoints(std::vector<UPoint3<float>> const& value) { eyeKeyPoints = value; }
    /// From the bottom of the solid to its top, in the world; see updateDepth.
    UVector3<float> const& getExtrudeVector() const { return extrudeVector; }
    void setExtrudeVector(UVector3<float> const& value) { extrudeVector = value; }
    /// Eye-space Z of the plane in which the tool is drawn.
    float getSketchDepth() const { return sketchDepth; }
    void setSketchDepth(float value) { sketchDepth = value; }
    /// Alpha of the preview's faces, on a scale to 255.
    unsigned getFillAlpha() const { return fillAlpha; }
    void setFillAlpha(unsigned value) { fillAlpha = value; }
    bool getShowCoordinate() const { return showCoordinate; }
    void setShowCoordinate(bool value) { showCoordinate = value; }
    /// The clearance counts only if it is enabled and at least 0.001 mm.
    bool getClearanceEnabled() const { return clearanceEnabled; }
    void setClearanceEnabled(bool value) { clearanceEnabled = value; }
    float getClearance() const { return clearance; }
    void setClearance(float value) { clearance = value; }
    /// 0 inside, 1 outside, 2 both sides.
    int getClearanceDirection() const { return clearanceDirection; }
    void setClearanceDirection(int value) { clearanceDirection = value; }
    /// World coordinate at which the tool ends, if enabled.
    float getCutTillValue() const { return cutTillValue; }
    void setCutTillValue(float value) { cutTillValue = value; }
    bool getCutTillEnabled() const { return cutTillEnabled; }
    void setCutTillEnabled(bool value) { cutTillEnabled = value; }
    bool getPreviewOn() const { return previewOn; }
    /// 0 and 1 look along Y, 2 and 3 along Z, 4 and 5 along X; others mean no standard view.
    int getViewIndex() const { return viewIndex; }
    void setViewIndex(int value) { viewIndex = value; }
    UPoint3<float> const& getSavedEye() const { return savedEye; }
    UPoint3<float> const& getSavedRef() const { return savedRef; }
    UVector3<float> const& getSavedUp() const { return savedUp; }
    UPoint3<float> const& getLastEye() const { return lastEye; }
    void setLastEye(UPoint3<float> const& value) { lastEye = value; }
    UPoint3<float> const& getLastRef() const { return lastRef; }
    void setLastRef(UPoint3<float> const& value) { lastRef = value; }
    UVector3<float> const& getLastUp() const { return lastUp; }
    void setLastUp(UVector3<float> const& value) { lastUp = value; }

protected:
    /// The view whose eye space counts; null if there is none.
    Base::GLView* eyeView() const;
    /// The eye-space images of world points.
    static std::vector<UPoint3<float>> eyeImages(Base::GLView const& view,
                                                 std::vector<UPoint3<float>> points);
    /// Lets the view provider of a tool of that class follow the record.
    void updateGeometryOf(char const* className);

    std::vector<UPoint3<float>> eyeKeyPoints;
    UVector3<float> extrudeVector;
    float sketchDepth = 0;
    unsigned fillAlpha = 0;
    bool showCoordinate = false;
    bool clearanceEnabled = false;
    float clearance = 0;
    int clearanceDirection = 0;
    float cutTillValue = 0;
    bool cutTillEnabled = false;
    bool previewOn = false;
    int viewIndex = -1;
    UPoint3<float> savedEye;
    UPoint3<float> savedRef;
    UVector3<float> savedUp;
    UPoint3<float> lastEye;
    UPoint3<float> lastRef;
    UVector3<float> lastUp;

private:
    RigidMotion turns;
};

}  // namespace Freecut
